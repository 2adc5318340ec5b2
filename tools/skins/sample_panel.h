#pragma once

#include <QImage>
#include <QString>

namespace paneda {

// What a picture of the sample panel shows besides the skin.
struct SamplePanel {
    QString AppFolder; // with skin/ below it
    QString Skin;
    QString Assets;           // folder of Icons/ and logo/
    double Ratio = 1;         // of the screen
    double ButtonsPerRow = 5; // width of the panel
    bool Words = true;        // without: no title, no label and no figure of a drive
};

// A panel of made-up buttons in a skin, composed by the painters of the program, in device pixels. Ends the
// program when the skin cannot be read.
QImage PaintSamplePanel(const SamplePanel& sample);

// A panel's picture on a quiet desktop, so that its own transparency shows. Opaque.
QImage OnDesktop(const QImage& panel, double ratio);

} // namespace paneda

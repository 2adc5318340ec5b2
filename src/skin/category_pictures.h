#pragma once

#include "core/files/file_io.h"
#include "skin/drive_painter.h"
#include "skin/font_choice.h"
#include "skin/panel_painter.h"
#include "skin/theme_state.h"

#include <QImage>
#include <QString>

#include <functional>
#include <map>
#include <memory>
#include <vector>

namespace paneda {

// What the pictures of the categories are composed from. All that is referred to outlives the pictures.
struct PictureSources {
    const ThemeState& Theme;
    FontChoice& Fonts;
    const CatalogueList& Catalogue;
    const PanelGeometry& Geometry; // of that catalogue
    const PieceSizes& Sizes;       // that it was laid out by
    IconSource& Icons;
    const DriveMap& Drives;
    QString AppPath; // stored form
    QString Logo;    // path of the picture; empty for none
    // Asks the drives of the first category for their figures.
    std::function<std::vector<DriveState>()> ReadDrives;
    TickSource DecodingTicks = ProcessorTick; // measures the decoding of pictures
};

// The pictures of the window, one for each category, as it looks with that category opened. They lie as PNG
// files of the window's size in the cache folder: category002.png shows the second category, category002a.png
// is the same without the titles on its bars. The first category has two pairs: number 0 as it was composed,
// number 1 with the figures of its drives, which is the one that is shown. Screens of another ratio have
// files of their own, category002@1.25x.png and category002a@1.25x.png; the sets of the last four ratios stay
// until the panel looks different.
//
// A picture that is missing, damaged or of another size is composed when it is asked for, and written later,
// since it is to be shown first. In a folder that
// cannot be written every picture is composed each time; that is no error. Neither is a picture kept as a
// file that lacks something only because decoding took too long: the next start composes it again.
class CategoryPictures {
public:
    // Whether the files in the folder show what the sources say, or something else and have to be removed.
    enum class Files { Keep, Drop };

    // `folder` is the host path of the cache folder. The pictures are those for a screen of ratio 1.
    CategoryPictures(const QString& folder, PictureSources sources, Files files);
    ~CategoryPictures();

    // From now on all pictures are those for a screen of this ratio (see device_pixels.h).
    void SetRatio(double ratio);

    // The picture with this category opened, of the window's size in device pixels; for -1 the frame alone.
    QImage Picture(int category);

    // Writes what was composed last, or composes one picture more that is not on file yet. False when nothing
    // is left to do.
    bool PrepareNext();

    // Asks the drives again and draws their figures on the shown pictures of the first category. Those of
    // other ratios keep the figures of when they were shown.
    void RefleshPanel();

    // The pictures of the skin and of buttons that have been left out since the last call. Some are named
    // again when a category is composed again.
    std::vector<PictureError> TakeLeftOut();

    // Writes the titles of the bars again on the pictures of all categories. Pictures that are not on file
    // are left out, those of other ratios are removed. Returns those that could not be written.
    std::vector<FileError> RedrawBarTitles();

private:
    class Composition;
    enum class Kind { Finished, Base };

    struct Pair {
        int Number = 0; // in the names of its files
        QImage Base;
        QImage Finished;
    };

    // What was composed last and is not on file.
    struct Composed {
        int Category = -1;
        bool Whole = false;           // nothing was left out for lack of time
        bool Tried = false;           // to write it
        std::vector<Pair> Pairs = {}; // the last one is shown
    };

    QString PathOf(int number, Kind kind) const;
    QImage Load(int number, Kind kind) const;
    FileResult Save(int number, Kind kind, const QImage& picture) const;
    QImage Compose(int category);
    Pair WithDrives(const Pair& composed);
    bool SavePair(const Pair& pair) const;
    bool KeepComposed();
    QString NameEnd() const;
    void DropFiles(const QStringList& keptEnds) const;
    void DropOldRatios() const;
    std::vector<bool>& OnFile();
    PanelPainter& Painter();

    QString folder_;
    PictureSources sources_;
    Canvas window_;
    Files files_; // what is true of ratios that have not been shown yet
    // By ratio and category: the file of its shown picture is one of this panel. One that could not be
    // removed is not.
    std::map<double, std::vector<bool>> onFile_;
    Composed composed_;
    std::vector<PictureError> leftOut_; // by compositions that have ended
    bool canSave_ = true;               // what cannot be kept is composed again, and never in advance
    int next_ = 0;                      // the next category to look at in PrepareNext
    // Kept while pictures are composed one after another: it has read the skin's pictures. If it had no time
    // for all of them it stays, so that the time is not spent again.
    std::unique_ptr<Composition> composition_;
};

} // namespace paneda

// The floor for a start of the panel: a bare Qt program that shows one picture in a window of its size.
//
// usage: bench_start_floor PICTURE

#include <QApplication>
#include <QImage>
#include <QPainter>
#include <QWidget>

namespace {

class PictureWindow : public QWidget {
public:
    explicit PictureWindow(const QImage& picture) : QWidget(nullptr, Qt::Window | Qt::FramelessWindowHint) {
        picture_ = picture;
        picture_.setDevicePixelRatio(devicePixelRatioF());
        setAttribute(Qt::WA_TranslucentBackground);
        setWindowTitle(QStringLiteral("AhPanel"));
        setFixedSize(picture_.deviceIndependentSize().toSize());
        move(0, 0);
    }

protected:
    void paintEvent(QPaintEvent*) override { QPainter(this).drawImage(0, 0, picture_); }

private:
    QImage picture_;
};

} // namespace

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    PictureWindow window(QImage(application.arguments().value(1)));
    window.show();
    return QApplication::exec();
}

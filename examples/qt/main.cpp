// A photo viewer: example_qt PHOTO. Ctrl and the wheel zoom.

#include "qt/PixtaneQt.h"
#include "qt/PixtaneWidget.h"

#include <iostream>
#include <QApplication>
#include <QImage>

namespace
{

/// The header of a bottom-up bitmap of 32 bits a pixel.
BITMAPINFO InfoOf(const QImage& image)
{
    BITMAPINFO info = {};
    info.bmiHeader.biSize = sizeof(BITMAPINFOHEADER);
    info.bmiHeader.biWidth = image.width();
    info.bmiHeader.biHeight = image.height();
    info.bmiHeader.biPlanes = 1;
    info.bmiHeader.biBitCount = 32;
    return info;
}

} // namespace

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    const QString strPath = application.arguments().value(1);
    // The view keeps no copy: the pixels must outlive it.
    QImage photo = QImage(strPath).convertToFormat(QImage::Format_RGB32).mirrored();
    if (photo.isNull())
    {
        std::cerr << "usage: example_qt PHOTO\n";
        return 1;
    }
    const CPixtaneQt library;
    CPixtaneWidget widget;
    QObject::connect(&widget, &CPixtaneWidget::DisplayChanged, &widget,
                     [&]
                     {
                         const double dPercent = widget.View().dbZoom() * 100;
                         widget.setWindowTitle(QString("%1 - %2 %").arg(strPath).arg(dPercent, 0, 'f', 1));
                     });
    widget.resize(900, 600);
    widget.show();
    BITMAPINFO info = InfoOf(photo);
    widget.View().SetBitmap(info, photo.bits());
    widget.Zoom().ZoomToFit();
    return QApplication::exec();
}

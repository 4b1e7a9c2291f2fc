#include "document/PngFile.h"

#include <QImageWriter>

bool WritePng(const std::string& strPath, int cx, int cy, const std::uint32_t* pPixels, std::string& strError)
{
    const QImage image(reinterpret_cast<const uchar*>(pPixels), cx, cy, qsizetype{4} * cx, QImage::Format_RGB32);
    QImageWriter writer(QString::fromStdString(strPath), "png");
    if (writer.write(image))
        return true;
    strError = strPath + ": " + writer.errorString().toStdString();
    return false;
}

#include "qtdesktop/CursorShape.h"

#include "user/Cursor.h"

#include <algorithm>
#include <QImage>
#include <QPixmap>

namespace winlite
{

namespace
{

struct SystemShape
{
    int iSystemId;
    Qt::CursorShape shape;
};

constexpr SystemShape SYSTEM_SHAPES[] = {
    {32512, Qt::ArrowCursor},     {32513, Qt::IBeamCursor},        {32514, Qt::WaitCursor},
    {32515, Qt::CrossCursor},     {32642, Qt::SizeFDiagCursor},    {32643, Qt::SizeBDiagCursor},
    {32644, Qt::SizeHorCursor},   {32645, Qt::SizeVerCursor},      {32646, Qt::SizeAllCursor},
    {32648, Qt::ForbiddenCursor}, {32649, Qt::PointingHandCursor},
};

Qt::CursorShape ShapeOf(int iSystemId)
{
    const auto it = std::ranges::find(SYSTEM_SHAPES, iSystemId, &SystemShape::iSystemId);
    return it == std::end(SYSTEM_SHAPES) ? Qt::ArrowCursor : it->shape;
}

QCursor PictureCursor(const CursorObject& cursor, double dScale)
{
    const QImage image(reinterpret_cast<const uchar*>(cursor.vPixels.data()), cursor.cx, cursor.cy,
                       QImage::Format_ARGB32);
    const QSize szScaled = (QSizeF(image.size()) * dScale).toSize();
    QPixmap pixmap = QPixmap::fromImage(image.scaled(szScaled, Qt::IgnoreAspectRatio, Qt::FastTransformation));
    pixmap.setDevicePixelRatio(dScale);
    return QCursor(pixmap, cursor.ptHotSpot.x, cursor.ptHotSpot.y);
}

} // namespace

QCursor CursorShape(HCURSOR hCursor, double dScale)
{
    if (!hCursor)
        return Qt::BlankCursor;
    const auto pCursor = FindHandleAs<CursorObject>(hCursor);
    if (!pCursor || pCursor->iSystemId || pCursor->vPixels.empty())
        return ShapeOf(pCursor ? pCursor->iSystemId : 0);
    return PictureCursor(*pCursor, dScale);
}

} // namespace winlite

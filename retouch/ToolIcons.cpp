#include "retouch/ToolIcons.h"

#include <algorithm>
#include <QGuiApplication>
#include <QPainter>
#include <QPainterPath>
#include <QPalette>

namespace
{

// Icons are drawn in a square of 24 units.
constexpr int SIDE = 24;

QPainterPath Hand()
{
    QPainterPath path;
    path.moveTo(6.5, 13);
    path.cubicTo(4, 10.5, 5.5, 9, 8, 11.5);
    path.lineTo(8, 6);
    for (const double x : {8.0, 10.75, 13.5, 16.25})
    {
        const double dTop = x == 8.0 || x == 13.5 ? 4.5 : x == 10.75 ? 3.5 : 6.5;
        path.lineTo(x, dTop + 1);
        path.cubicTo(x, dTop - 0.6, x + 2.4, dTop - 0.6, x + 2.4, dTop + 1);
        path.lineTo(x + 2.4, 11);
        path.lineTo(x + 2.75, 11);
    }
    path.lineTo(18.65, 15);
    path.cubicTo(18.65, 21, 11, 22.5, 9, 18);
    path.closeSubpath();
    return path;
}

QPainterPath Lasso()
{
    QPainterPath path;
    path.addEllipse(QRectF(3, 4, 18, 11));
    path.moveTo(7, 14);
    path.cubicTo(5, 16, 9, 17, 7, 21);
    return path;
}

QPainterPath Polygon()
{
    QPainterPath path;
    path.addPolygon(QPolygonF({{4, 8}, {12, 4}, {20, 7}, {17, 19}, {9, 14}, {5, 19}, {4, 8}}));
    return path;
}

QPainterPath Rectangle()
{
    QPainterPath path;
    path.addRect(QRectF(3.5, 5.5, 17, 13));
    return path;
}

QPainterPath Ellipse()
{
    QPainterPath path;
    path.addEllipse(QRectF(3.5, 5.5, 17, 13));
    return path;
}

QPainterPath Wand()
{
    QPainterPath path;
    path.moveTo(10, 10);
    path.lineTo(20, 20);
    for (const QPointF pt : {QPointF(7, 7), QPointF(14, 5), QPointF(5, 14)})
    {
        const double dRay = pt.x() == 7 ? 3.2 : 1.8;
        path.moveTo(pt.x() - dRay, pt.y());
        path.lineTo(pt.x() + dRay, pt.y());
        path.moveTo(pt.x(), pt.y() - dRay);
        path.lineTo(pt.x(), pt.y() + dRay);
    }
    return path;
}

/// A frame with its handles.
QPainterPath Transform()
{
    QPainterPath path;
    path.addRect(QRectF(4.5, 6.5, 15, 11));
    for (const QPointF pt : {QPointF(4.5, 6.5), QPointF(19.5, 6.5), QPointF(4.5, 17.5), QPointF(19.5, 17.5)})
        path.addRect(QRectF(pt.x() - 2, pt.y() - 2, 4, 4));
    return path;
}

/// Two overlapping squares, of which the part that a rule leaves is filled.
QPainterPath Squares(bool bFirst, bool bSecond, bool bBoth)
{
    QPainterPath first, second;
    first.addRect(QRectF(4, 4, 10, 10));
    second.addRect(QRectF(10, 10, 10, 10));
    QPainterPath left;
    if (bFirst)
        left |= first - second;
    if (bSecond)
        left |= second - first;
    if (bBoth)
        left |= first & second;
    return left;
}

struct Icon
{
    const char* pszName;
    QPainterPath (*pPath)();
    bool bDashed; ///< Outlines of selections are.
    bool bFilled;
};

constexpr Icon ICONS[] = {
    {"hand", &Hand, false, false},
    {"lasso", &Lasso, false, false},
    {"polygon", &Polygon, false, false},
    {"rectangle", &Rectangle, true, false},
    {"ellipse", &Ellipse, true, false},
    {"wand", &Wand, false, false},
    {"transform", &Transform, false, false},
    {"new", [] { return Squares(false, true, true); }, false, true},
    {"add", [] { return Squares(true, true, true); }, false, true},
    {"subtract", [] { return Squares(true, false, false); }, false, true},
    {"intersect", [] { return Squares(false, false, true); }, false, true},
};

QPixmap Draw(const Icon& icon, int iScale)
{
    QPixmap pixmap(SIDE * iScale, SIDE * iScale);
    pixmap.setDevicePixelRatio(iScale);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    painter.setRenderHint(QPainter::Antialiasing);
    const QColor colour = QGuiApplication::palette().color(QPalette::WindowText);
    QPen pen(colour, icon.bDashed ? 1.5 : 1.6, icon.bDashed ? Qt::CustomDashLine : Qt::SolidLine, Qt::FlatCap,
             Qt::RoundJoin);
    if (icon.bDashed)
        pen.setDashPattern({2, 1.4});
    if (icon.bFilled)
    {
        painter.fillPath(icon.pPath(), colour);
        pen.setWidthF(1);
        painter.setPen(pen);
        painter.drawRect(QRectF(4, 4, 10, 10));
        painter.drawRect(QRectF(10, 10, 10, 10));
        return pixmap;
    }
    painter.setPen(pen);
    painter.drawPath(icon.pPath());
    return pixmap;
}

} // namespace

QIcon IconFor(const std::string& strName)
{
    const auto it = std::ranges::find(ICONS, strName, &Icon::pszName);
    QIcon icon;
    if (it == std::end(ICONS))
        return icon;
    for (const int iScale : {1, 2})
        icon.addPixmap(Draw(*it, iScale));
    return icon;
}

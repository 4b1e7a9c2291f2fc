#include "window/ToolIcons.h"

#include <locale>
#include <QGuiApplication>
#include <QPainter>
#include <QPainterPath>
#include <QPalette>
#include <sstream>

namespace
{

// Icons are drawn in a square of 24 units.
constexpr int SIDE = 24;

double Next(std::istringstream& text)
{
    double dNumber = 0;
    text >> dNumber;
    return dNumber;
}

QPointF NextPoint(std::istringstream& text)
{
    const double x = Next(text);
    return {x, Next(text)};
}

QRectF NextBox(std::istringstream& text)
{
    const QPointF ptLeftTop = NextPoint(text);
    const QPointF ptSize = NextPoint(text);
    return {ptLeftTop, QSizeF(ptSize.x(), ptSize.y())};
}

QPainterPath PathOf(const char* pszPath)
{
    // Numbers are written with a point in every locale.
    std::istringstream text(pszPath);
    text.imbue(std::locale::classic());
    QPainterPath path;
    path.setFillRule(Qt::WindingFill);
    for (char cVerb = 0; text >> cVerb;)
    {
        if (cVerb == 'M')
            path.moveTo(NextPoint(text));
        else if (cVerb == 'L')
            path.lineTo(NextPoint(text));
        else if (cVerb == 'R')
            path.addRect(NextBox(text));
        else if (cVerb == 'E')
            path.addEllipse(NextBox(text));
        else if (cVerb == 'Z')
            path.closeSubpath();
        else if (cVerb == 'C')
        {
            const QPointF ptFirst = NextPoint(text);
            const QPointF ptSecond = NextPoint(text);
            path.cubicTo(ptFirst, ptSecond, NextPoint(text));
        }
    }
    return path;
}

QPixmap Draw(const Icon& icon, int iScale)
{
    QPixmap pixmap(SIDE * iScale, SIDE * iScale);
    pixmap.setDevicePixelRatio(iScale);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    painter.setRenderHint(QPainter::Antialiasing);
    const QColor colour = QGuiApplication::palette().color(QPalette::WindowText);
    const bool bDashed = icon.eStyle == Icon::Style::Dashed;
    QPen pen(colour, bDashed ? 1.5 : 1.6, bDashed ? Qt::CustomDashLine : Qt::SolidLine, Qt::FlatCap, Qt::RoundJoin);
    if (bDashed)
        pen.setDashPattern({2, 1.4});
    if (icon.eStyle == Icon::Style::Merge)
    {
        painter.fillPath(PathOf(icon.pszPath), colour);
        pen.setWidthF(1);
        painter.setPen(pen);
        painter.drawRect(QRectF(4, 4, 10, 10));
        painter.drawRect(QRectF(10, 10, 10, 10));
        return pixmap;
    }
    painter.setPen(pen);
    painter.drawPath(PathOf(icon.pszPath));
    return pixmap;
}

} // namespace

QIcon IconFor(const Icon& icon)
{
    QIcon drawn;
    for (const int iScale : {1, 2})
        drawn.addPixmap(Draw(icon, iScale));
    return drawn;
}

#include "window/StatusTexts.h"

#include <algorithm>
#include <QLabel>

namespace
{

constexpr int GAP = 12;

int WidthOf(const QLabel& label) { return label.text().isEmpty() ? 0 : label.sizeHint().width() + GAP; }

} // namespace

CStatusTexts::CStatusTexts(QWidget* pParent, int nTexts) : QWidget(pParent)
{
    for (int i = 0; i < nTexts; ++i)
        m_vLabels.push_back(new QLabel(this));
}

void CStatusTexts::SetText(int iText, const QString& strText)
{
    QLabel& label = *m_vLabels[static_cast<std::size_t>(iText)];
    if (label.text() == strText)
        return;
    const int cxBefore = WidthOf(label);
    label.setText(strText);
    if (WidthOf(label) != cxBefore)
        updateGeometry();
    Arrange();
}

QSize CStatusTexts::sizeHint() const
{
    int cx = 0;
    for (const QLabel* const pLabel : m_vLabels)
        cx += WidthOf(*pLabel);
    return {cx, minimumSizeHint().height()};
}

QSize CStatusTexts::minimumSizeHint() const { return {0, fontMetrics().height()}; }

void CStatusTexts::resizeEvent(QResizeEvent*) { Arrange(); }

void CStatusTexts::Arrange()
{
    int x = width();
    for (auto it = m_vLabels.rbegin(); it != m_vLabels.rend(); ++it)
    {
        QLabel& label = **it;
        const int cx = WidthOf(label);
        label.setVisible(cx > 0 && cx <= x);
        if (label.isHidden())
        {
            x = cx > 0 ? 0 : x; // What is worth less does not take its place.
            continue;
        }
        x -= cx;
        label.setGeometry(x + GAP, 0, cx - GAP, height());
    }
}

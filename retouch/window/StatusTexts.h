#pragma once

#include <QWidget>
#include <vector>

class QLabel;

/// Texts beside each other at the right of the status bar. Where it is too narrow for all, those worth less give way.
class CStatusTexts : public QWidget
{
public:
    /// Makes nTexts texts, the first worth least. They stand in this order.
    CStatusTexts(QWidget* pParent, int nTexts);

    void SetText(int iText, const QString& strText);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void resizeEvent(QResizeEvent* pEvent) override;

private:
    void Arrange();

    std::vector<QLabel*> m_vLabels;
};

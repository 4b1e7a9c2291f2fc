#include "window/OptionsBar.h"

#include <QCoreApplication>
#include <QLabel>
#include <QScopedValueRollback>
#include <QSpinBox>

namespace
{

QString Translated(const char* pszText) { return QCoreApplication::translate("Tool", pszText); }

bool Has(const Tool& tool, const ToolOption* pOption)
{
    return pOption >= tool.vOptions.data() && pOption < tool.vOptions.data() + tool.vOptions.size();
}

} // namespace

COptionsBar::COptionsBar(QWidget* pParent, ExecuteCommand execute, std::function<void()> done)
    : QToolBar(tr("Options"), pParent), m_Execute(std::move(execute)), m_Done(std::move(done))
{
    setMovable(false);
    setIconSize({20, 20});
    for (const ToolOption* const pOption : ToolOptions())
    {
        if (pOption->vChoices.empty())
            AddNumber(*pOption);
        else
            AddChoices(*pOption);
    }
}

void COptionsBar::AddChoices(const ToolOption& option)
{
    auto* const pChoices = new CChoiceGroup(*this, option.pszWord, option.vChoices, m_Execute);
    m_vEntries.push_back({&option, pChoices, nullptr, pChoices->actions() + QList{addSeparator()}});
}

void COptionsBar::AddNumber(const ToolOption& option)
{
    auto* const pLabel = new QLabel(Translated(option.pszLabel), this);
    auto* const pNumber = new QSpinBox(this);
    pNumber->setRange(option.iLeast, option.iMost);
    pNumber->setSuffix(Translated(option.pszSuffix));
    pNumber->setToolTip(Translated(option.pszTip));
    pLabel->setBuddy(pNumber);
    m_vEntries.push_back({&option, nullptr, pNumber, {addWidget(pLabel), addWidget(pNumber)}});
    connect(pNumber, &QSpinBox::valueChanged, this,
            [this, &option](int iNumber)
            {
                if (!m_bShowing)
                    m_Execute(std::string(option.pszWord) + " " + std::to_string(iNumber));
            });
    connect(pNumber, &QSpinBox::editingFinished, this, [this] { m_Done(); });
}

void COptionsBar::Show(const ProgramState& state)
{
    const QScopedValueRollback<bool> showing(m_bShowing, true);
    const Tool& tool = *FindTool(state.strTool);
    for (const Entry& entry : m_vEntries)
    {
        const int iValue = state.vOptions.at(entry.pOption->pszWord);
        if (entry.pChoices)
            entry.pChoices->Show(entry.pOption->Text(iValue));
        else
            entry.pNumber->setValue(iValue);
        for (QAction* const pAction : entry.vActions)
            pAction->setVisible(Has(tool, entry.pOption));
    }
    setVisible(!tool.vOptions.empty());
}

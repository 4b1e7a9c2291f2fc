#include "window/OptionsBar.h"

#include "window/NumberBox.h"
#include "window/ToolIcons.h"

#include <algorithm>
#include <QCoreApplication>
#include <QLabel>
#include <QScopedValueRollback>

namespace
{

QString Translated(const char* pszText) { return QCoreApplication::translate("Tool", pszText); }

bool Has(const Tool& tool, const ToolOption* pOption)
{
    return std::ranges::find(tool.vOptions, pOption) != tool.vOptions.end();
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
    for (const Tool& tool : Tools())
        AddActions(tool);
}

void COptionsBar::AddChoices(const ToolOption& option)
{
    auto* const pChoices = new CChoiceGroup(*this, option.pszWord, option.vChoices, m_Execute);
    m_vEntries.push_back({&option, pChoices, nullptr, pChoices->actions() + QList{addSeparator()}});
}

void COptionsBar::AddNumber(const ToolOption& option)
{
    auto* const pLabel = new QLabel(Translated(option.pszLabel), this);
    auto* const pNumber = new CNumberBox(this);
    pNumber->setRange(option.iLeast, option.iMost);
    pNumber->setSuffix(Translated(option.pszSuffix));
    pNumber->setToolTip(Translated(option.pszTip));
    pLabel->setBuddy(pNumber);
    m_vEntries.push_back(
        {&option, nullptr, pNumber, QList{addWidget(pLabel), addWidget(pNumber)} + KeysOf(option, *pNumber)});
    connect(pNumber, &QSpinBox::valueChanged, this,
            [this, &option](int iNumber)
            {
                if (!m_bShowing)
                    m_Execute(std::string(option.pszWord) + " " + std::to_string(iNumber));
            });
    connect(pNumber, &CNumberBox::Entered, this, [this] { m_Done(); });
}

void COptionsBar::AddActions(const Tool& tool)
{
    for (const Choice& action : tool.vActions)
    {
        QAction* const pAction = addAction(IconFor(action.icon), Translated(action.pszText),
                                           [this, strWord = action.pszWord] { m_Execute(strWord); });
        pAction->setShortcut(QKeySequence(action.pszKey));
        pAction->setToolTip(QString("%1 (%2)").arg(pAction->text(), action.pszKey));
        widgetForAction(pAction)->setFocusPolicy(Qt::TabFocus);
        m_vToolActions[pAction] = &tool;
    }
}

QAction* COptionsBar::AddKey(const QString& strKey, std::function<void()> press)
{
    auto* const pAction = new QAction(this);
    pAction->setShortcut(QKeySequence(strKey));
    connect(pAction, &QAction::triggered, this, std::move(press));
    parentWidget()->addAction(pAction); // Not a button of this bar.
    return pAction;
}

QList<QAction*> COptionsBar::KeysOf(const ToolOption& option, QSpinBox& number)
{
    constexpr int SHARE = 10; // Of the value, and of the whole.
    QList<QAction*> vKeys;
    const auto addStep = [&](const char* pszKey, int iDirection)
    {
        if (*pszKey)
            vKeys += AddKey(pszKey, [&number, iDirection]
                            { number.setValue(number.value() + iDirection * std::max(1, number.value() / SHARE)); });
    };
    addStep(option.pszLessKey, -1);
    addStep(option.pszMoreKey, 1);
    for (int iDigit = 0; iDigit < SHARE && option.bDigits; ++iDigit)
    {
        const int iValue = option.iMost * (iDigit ? iDigit : SHARE) / SHARE;
        vKeys += AddKey(QString::number(iDigit), [&number, iValue] { number.setValue(iValue); });
    }
    return vKeys;
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
    for (auto it = m_vToolActions.cbegin(); it != m_vToolActions.cend(); ++it)
        it.key()->setVisible(it.value() == &tool);
    setVisible(!tool.vOptions.empty());
}

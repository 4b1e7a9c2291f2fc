#include "window/HelpPages.h"

#include "program/Tool.h"

#include <QCoreApplication>
#include <QDialog>
#include <QDialogButtonBox>
#include <QMenu>
#include <QMessageBox>
#include <QTextBrowser>
#include <QVBoxLayout>

namespace
{

QString Tr(const char* pszText) { return QCoreApplication::translate("HelpPages", pszText); }
QString OfTool(const char* pszText) { return QCoreApplication::translate("Tool", pszText).trimmed(); }

QString Row(const QString& strKeys, const QString& strText)
{
    return "<tr><td><b>" + strKeys.toHtmlEscaped() + "</b>&nbsp;&nbsp;</td><td>" + strText.toHtmlEscaped() +
           "</td></tr>";
}

QString Heading(const QString& strText)
{
    return "<tr><td colspan=2><h3>" + strText.toHtmlEscaped() + "</h3></td></tr>";
}

QString WithoutMark(QString strText)
{
    strText.replace("&&", "\x01").remove('&').replace("\x01", "&");
    return strText.remove("...");
}

QString RowsOf(const QMenu& menu)
{
    QString strRows = Heading(WithoutMark(menu.title()));
    for (const QAction* const pAction : menu.actions())
    {
        if (!pAction->shortcut().isEmpty())
            strRows += Row(QKeySequence::listToString(pAction->shortcuts(), QKeySequence::NativeText),
                           WithoutMark(pAction->text()));
    }
    return strRows;
}

QString RowsOf(const ToolOption& option)
{
    const QString strLabel = WithoutMark(OfTool(option.pszLabel));
    QString strRows;
    if (*option.pszLessKey)
        strRows += Row(QString("%1  %2").arg(option.pszLessKey, option.pszMoreKey), strLabel);
    if (option.bDigits)
        strRows += Row("1 ... 9, 0", strLabel);
    for (const Choice& choice : option.vChoices)
    {
        if (*choice.pszKey)
            strRows += Row(choice.pszKey, OfTool(choice.pszText));
    }
    return strRows;
}

QString RowsOfTools()
{
    QString strRows = Heading(Tr("Tools"));
    for (const Tool& tool : Tools())
    {
        strRows += Row(tool.pszKey, OfTool(tool.pszText));
        for (const Choice& action : tool.vActions)
            strRows += Row(action.pszKey, OfTool(action.pszText));
    }
    strRows += Heading(Tr("Their options"));
    for (const ToolOption* const pOption : ToolOptions())
        strRows += RowsOf(*pOption);
    return strRows;
}

QString RowsOfPicture()
{
    const char* const vRows[][2] = {
        {QT_TRANSLATE_NOOP("HelpPages", "Space held"), QT_TRANSLATE_NOOP("HelpPages", "The hand; in a shape: move it")},
        {QT_TRANSLATE_NOOP("HelpPages", "B held"), QT_TRANSLATE_NOOP("HelpPages", "The original")},
        {QT_TRANSLATE_NOOP("HelpPages", "Esc"),
         QT_TRANSLATE_NOOP("HelpPages", "Give up a shape, a stroke, a transform or what takes long")},
        {QT_TRANSLATE_NOOP("HelpPages", "Arrows"), QT_TRANSLATE_NOOP("HelpPages", "Move the selection")},
        {QT_TRANSLATE_NOOP("HelpPages", "Ctrl+wheel"), QT_TRANSLATE_NOOP("HelpPages", "Zoom about the pointer")},
        {QT_TRANSLATE_NOOP("HelpPages", "Wheel, Shift+wheel"),
         QT_TRANSLATE_NOOP("HelpPages", "Scroll up and down, sideways")},
        {QT_TRANSLATE_NOOP("HelpPages", "Middle button"), QT_TRANSLATE_NOOP("HelpPages", "Draw the picture along")},
        {QT_TRANSLATE_NOOP("HelpPages", "Ctrl+arrows, Page Up, Page Down, Home, End"),
         QT_TRANSLATE_NOOP("HelpPages", "Scroll")},
    };
    QString strRows = Heading(Tr("In the picture"));
    for (const auto& row : vRows)
        strRows += Row(Tr(row[0]), Tr(row[1]));
    return strRows;
}

} // namespace

void ShowShortcuts(QWidget& parent, const QMenuBar& menus)
{
    QString strRows;
    for (const QAction* const pAction : menus.actions())
    {
        if (pAction->menu())
            strRows += RowsOf(*pAction->menu());
    }
    auto* const pDialog = new QDialog(&parent);
    pDialog->setAttribute(Qt::WA_DeleteOnClose);
    pDialog->setWindowTitle(Tr("Shortcuts"));
    auto* const pPage = new QTextBrowser(pDialog);
    pPage->setHtml("<table>" + RowsOfTools() + RowsOfPicture() + strRows + "</table>");
    auto* const pButtons = new QDialogButtonBox(QDialogButtonBox::Close, pDialog);
    QObject::connect(pButtons, &QDialogButtonBox::rejected, pDialog, &QDialog::reject);
    auto* const pLayout = new QVBoxLayout(pDialog);
    pLayout->addWidget(pPage);
    pLayout->addWidget(pButtons);
    pDialog->resize(560, 600);
    pDialog->show();
}

void ShowAbout(QWidget& parent)
{
    QMessageBox::about(&parent, Tr("About retouch"),
                       Tr("<h3>retouch %1</h3><p>Retouches photos. Pixtane %2, Qt %3.</p>")
                           .arg(QCoreApplication::applicationVersion(), PIXTANE_VERSION, qVersion()));
}

#include "window/RecoveryQuestion.h"

#include "document/SessionReader.h"

#include <cstdio>
#include <memory>
#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QMessageBox>
#include <QPushButton>

namespace
{

QString Translated(const char* pszText) { return QCoreApplication::translate("Recovery", pszText); }

/// What is left of the sessions to ask about.
struct Questions
{
    QWidget& window;
    ExecuteCommand execute;
    std::vector<LostSession> vSessions;
};

void AskNext(const std::shared_ptr<Questions>& pQuestions)
{
    if (pQuestions->vSessions.empty())
        return;
    const LostSession session = pQuestions->vSessions.front();
    pQuestions->vSessions.erase(pQuestions->vSessions.begin());
    const QString strPhoto = session.strPath.empty()
                                 ? Translated(QT_TRANSLATE_NOOP("Recovery", "the sample"))
                                 : QFileInfo(QString::fromStdString(session.strPath)).fileName();
    auto* const pBox = new QMessageBox(
        QMessageBox::Question, Translated(QT_TRANSLATE_NOOP("Recovery", "Recover Work")),
        Translated(QT_TRANSLATE_NOOP("Recovery", "The program came to an unexpected end while %1 was being worked on."))
            .arg(strPhoto),
        QMessageBox::NoButton, &pQuestions->window);
    pBox->setAttribute(Qt::WA_DeleteOnClose);
    pBox->setInformativeText(
        Translated(QT_TRANSLATE_NOOP("Recovery", "The work up to the last step can be recovered.")));
    auto* const pRecover =
        pBox->addButton(Translated(QT_TRANSLATE_NOOP("Recovery", "&Recover")), QMessageBox::AcceptRole);
    auto* const pDiscard =
        pBox->addButton(Translated(QT_TRANSLATE_NOOP("Recovery", "&Discard")), QMessageBox::DestructiveRole);
    pBox->addButton(Translated(QT_TRANSLATE_NOOP("Recovery", "&Later")), QMessageBox::RejectRole);
    pBox->setDefaultButton(pRecover);
    QObject::connect(pBox, &QMessageBox::buttonClicked, &pQuestions->window,
                     [=](QAbstractButton* pButton)
                     {
                         if (pButton == pRecover)
                             return pQuestions->execute("recover " + session.strFile); // The others wait.
                         if (pButton == pDiscard)
                             std::remove(session.strFile.c_str());
                         AskNext(pQuestions);
                     });
    pBox->open();
}

} // namespace

std::string SessionFolder()
{
    const QString strState = qEnvironmentVariable("XDG_STATE_HOME", QDir::homePath() + "/.local/state");
    return (strState + "/retouch").toStdString();
}

void OfferRecovery(QWidget& window, const ExecuteCommand& execute)
{
    AskNext(std::make_shared<Questions>(window, execute, FindLostSessions(SessionFolder())));
}

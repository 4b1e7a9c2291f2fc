#pragma once

#include "document/PhotoOrigin.h"
#include "window/CommandBar.h"

#include <QMainWindow>
#include <QMessageBox>

class CRetoucher;

/// Opening and saving as a person does it: asks for names, for the quality of JPEG files, and before anything is lost.
/// Everything happens by commands. User-interface thread.
class CPhotoFiles : public QObject
{
    Q_OBJECT

public:
    /// Window and retoucher must outlive it.
    CPhotoFiles(QMainWindow& window, CRetoucher& retoucher, ExecuteCommand execute);

    /// Asks for a photo and opens it.
    void Choose();

    /// Opens a photo file, or shows the sample picture for an empty path.
    void Open(const QString& strPath);

    /// Opens the first of several photos, and tells of the others; the sample picture for none.
    void OpenFirst(const QStringList& vPaths);

    /// Tells of a photo whose file ends too early. Does not wait for the person.
    void WarnOfCutOff();

    /// Writes over the photo's own file, or asks for another one where that would lose something. Calls next once
    /// nothing is unsaved.
    void Save(std::function<void()> next = {});
    void SaveAs(std::function<void()> next = {});

    /// Asks for the quality of JPEG files, and keeps it; FALSE when the person cancels.
    bool AskQuality();

    /// Whether going on to another photo, or closing, would lose changes or a file that is being written.
    bool WouldLose() const;

    /// Calls next after asking what is to become of changes that no file holds, if there are any: not at all when the
    /// person cancels. The question does not wait for the answer.
    void BeforeLosing(std::function<void()> next);

private:
    void Ask(const std::function<void()>& next);
    void AskForName(bool bToldLosses, const std::function<void()>& next);
    bool AcceptsLosses(PictureFormat format);
    void Write(const QString& strPath, const std::function<void()>& next);
    QStringList LossesAs(PictureFormat format) const;
    QString FreeName() const;
    void Tell(const QString& strText);
    void ShowBox(QMessageBox::Icon icon, const QString& strText, const QString& strMore);

    QMainWindow& m_window;
    CRetoucher& m_retoucher;
    ExecuteCommand m_Execute;
    bool m_bSaving = false; ///< A file is being written.
};

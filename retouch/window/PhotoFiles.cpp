#include "window/PhotoFiles.h"

#include "program/CommandText.h"
#include "program/Retoucher.h"
#include "window/RecentFiles.h"

#include <QFileDialog>
#include <QInputDialog>
#include <QMessageBox>
#include <QPushButton>
#include <QSettings>
#include <QStandardPaths>
#include <QStatusBar>

namespace
{

const char* const JPEG_QUALITY = "jpegQuality";

} // namespace

CPhotoFiles::CPhotoFiles(QMainWindow& window, CRetoucher& retoucher, ExecuteCommand execute)
    : m_window(window), m_retoucher(retoucher), m_Execute(std::move(execute))
{
    if (const int iQuality = QSettings().value(JPEG_QUALITY).toInt(); iQuality >= 1 && iQuality <= 100)
        m_Execute("jpeg-quality " + std::to_string(iQuality));
}

void CPhotoFiles::Tell(const QString& strText)
{
    constexpr int SHOWN_MS = 5000;
    m_window.statusBar()->showMessage(strText, SHOWN_MS);
}

// ---- opening

void CPhotoFiles::Choose()
{
    const QString strPath = QFileDialog::getOpenFileName(&m_window, tr("Open a photo"), LatestFolder(),
                                                         tr("Photos (*.jpg *.jpeg *.png *.tif *.tiff)"));
    if (!strPath.isEmpty())
        Open(strPath);
}

void CPhotoFiles::Open(const QString& strPath)
{
    const std::string strCommand =
        strPath.isEmpty() ? "open-sample" : "open " + Quoted(QFileInfo(strPath).absoluteFilePath().toStdString());
    BeforeLosing([this, strCommand] { m_Execute(strCommand); });
}

void CPhotoFiles::OpenFirst(const QStringList& vPaths)
{
    Open(vPaths.value(0));
    if (vPaths.size() < 2)
        return;
    QStringList vNames;
    for (const QString& strPath : vPaths.mid(1))
        vNames += QFileInfo(strPath).fileName();
    ShowBox(QMessageBox::Information,
            tr("One photo at a time: only %1 is opened.").arg(QFileInfo(vPaths[0]).fileName()),
            tr("Not opened: %1").arg(vNames.join(", ")));
}

void CPhotoFiles::WarnOfCutOff()
{
    if (m_retoucher.Photo()->Origin().bCutOff)
        ShowBox(QMessageBox::Warning, tr("The file ends before its picture does."),
                tr("It is shown as far as it goes. Saving keeps what is shown in another file."));
}

void CPhotoFiles::ShowBox(QMessageBox::Icon icon, const QString& strText, const QString& strMore)
{
    auto* const pBox = new QMessageBox(icon, tr("retouch"), strText, QMessageBox::Ok, &m_window);
    pBox->setInformativeText(strMore);
    pBox->setAttribute(Qt::WA_DeleteOnClose);
    pBox->open();
}

bool CPhotoFiles::WouldLose() const { return m_bSaving || m_retoucher.State().bUnsaved; }

void CPhotoFiles::BeforeLosing(std::function<void()> next)
{
    if (!WouldLose())
        return next();
    // It may be being saved right now.
    m_retoucher.WhenIdle(
        [this, next = std::move(next)]
        {
            if (m_retoucher.State().bUnsaved)
                Ask(next);
            else
                next();
        });
}

void CPhotoFiles::Ask(const std::function<void()>& next)
{
    const QString strPath = QString::fromStdString(m_retoucher.State().strPath);
    const QString strName = strPath.isEmpty() ? tr("the sample picture") : QFileInfo(strPath).fileName();
    auto* const pBox =
        new QMessageBox(QMessageBox::Question, tr("Unsaved Changes"), tr("Save the changes to %1?").arg(strName),
                        QMessageBox::Save | QMessageBox::Discard | QMessageBox::Cancel, &m_window);
    pBox->setInformativeText(tr("Otherwise they are lost."));
    pBox->button(QMessageBox::Save)->setText(tr("&Save"));
    pBox->button(QMessageBox::Discard)->setText(tr("&Discard"));
    pBox->setDefaultButton(QMessageBox::Save);
    pBox->setAttribute(Qt::WA_DeleteOnClose);
    connect(pBox, &QMessageBox::finished, this,
            [this, next](int iButton)
            {
                if (iButton == QMessageBox::Save)
                    Save(next);
                else if (iButton == QMessageBox::Discard)
                    next();
            });
    pBox->open();
}

// ---- saving

QStringList CPhotoFiles::LossesAs(PictureFormat format) const
{
    QStringList vLosses;
    for (const std::string& strLoss : m_retoucher.Photo()->Origin().WhatWouldBeLost(format))
        vLosses += QString::fromStdString(strLoss);
    return vLosses;
}

void CPhotoFiles::Save(std::function<void()> next)
{
    if (!m_retoucher.Photo())
        return;
    const ProgramState state = m_retoucher.State();
    const auto format = FormatOfName(state.strPath);
    const QString strPath = QString::fromStdString(state.strPath);
    if (state.strPath.empty() || !format)
        return AskForName(false, next);
    if (const QStringList vLosses = LossesAs(*format); !vLosses.isEmpty())
    {
        QMessageBox::information(&m_window, tr("The file stays as it is"),
                                 tr("%1 would lose: %2. Save the changed photo under another name.")
                                     .arg(QFileInfo(strPath).fileName(), vLosses.join(", ")));
        return AskForName(true, next);
    }
    if (state.bUnsaved)
        Write(strPath, next);
    else
        Tell(tr("Nothing has changed that %1 does not hold.").arg(QFileInfo(strPath).fileName()));
}

void CPhotoFiles::SaveAs(std::function<void()> next)
{
    if (m_retoucher.Photo())
        AskForName(false, next);
}

void CPhotoFiles::AskForName(bool bToldLosses, const std::function<void()>& next)
{
    QFileDialog dialog(&m_window, tr("Save the photo"), LatestFolder(), tr("Photos (*.jpg *.jpeg *.png *.tif *.tiff)"));
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    const QString strPath = QString::fromStdString(m_retoucher.State().strPath);
    const QString strName = bToldLosses || strPath.isEmpty() ? FreeName() : strPath;
    dialog.setDefaultSuffix(QFileInfo(strName).suffix());
    dialog.selectFile(strName);
    if (dialog.exec() != QDialog::Accepted)
        return;
    const QString strChosen = dialog.selectedFiles().value(0);
    const auto format = FormatOfName(strChosen.toStdString());
    if (bToldLosses || !format || AcceptsLosses(*format))
        Write(strChosen, next);
}

bool CPhotoFiles::AcceptsLosses(PictureFormat format)
{
    const QStringList vLosses = LossesAs(format);
    const QString strQuestion = tr("This file would not hold: %1. Save it all the same?").arg(vLosses.join(", "));
    return vLosses.isEmpty() ||
           QMessageBox::question(&m_window, m_window.windowTitle(), strQuestion) == QMessageBox::Yes;
}

QString CPhotoFiles::FreeName() const
{
    const QFileInfo own(QString::fromStdString(m_retoucher.State().strPath));
    if (own.fileName().isEmpty())
        return QStandardPaths::writableLocation(QStandardPaths::PicturesLocation) + "/" + tr("Sample") + ".jpg";
    QString strName;
    for (int i = 1; strName.isEmpty() || QFileInfo::exists(strName); ++i)
        strName = QString("%1/%2-%3.%4").arg(own.path(), own.completeBaseName()).arg(i).arg(own.suffix());
    return strName;
}

bool CPhotoFiles::AskQuality()
{
    bool bGiven = false;
    const int iNow = QSettings().value(JPEG_QUALITY, 90).toInt();
    const int iQuality = QInputDialog::getInt(
        &m_window, tr("JPEG Quality"), tr("Quality of JPEG files, 1 (small) to 100 (best):"), iNow, 1, 100, 1, &bGiven);
    if (!bGiven)
        return false;
    QSettings().setValue(JPEG_QUALITY, iQuality);
    m_Execute("jpeg-quality " + std::to_string(iQuality));
    return true;
}

void CPhotoFiles::Write(const QString& strPath, const std::function<void()>& next)
{
    const bool bJpeg = FormatOfName(strPath.toStdString()) == PictureFormat::Jpeg;
    if (bJpeg && !QSettings().contains(JPEG_QUALITY) && !AskQuality())
        return;
    // Whether a file that is there may go has been asked by now, or it is the photo's own.
    m_bSaving = true;
    m_Execute("save " + Quoted(strPath.toStdString()) + " --overwrite");
    m_retoucher.WhenIdle(
        [this, strPath, next]
        {
            m_bSaving = false;
            const ProgramState state = m_retoucher.State();
            if (state.bUnsaved || QString::fromStdString(state.strPath) != strPath)
                return; // It failed, which has been told, or was cancelled.
            RememberRecent(strPath);
            Tell(tr("Saved as %1.").arg(QFileInfo(strPath).fileName()));
            if (next)
                next();
        });
}

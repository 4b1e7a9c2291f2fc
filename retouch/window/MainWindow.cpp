#include "window/MainWindow.h"
#include "document/SavePhoto.h"

#include "program/CommandText.h"
#include "qt/PixtaneWidget.h"
#include "qtdesktop/QtDesktop.h"
#include "window/HeldInput.h"

#include <algorithm>
#include <QApplication>
#include <QFileDialog>
#include <QFileInfo>
#include <QKeyEvent>
#include <QLabel>
#include <QMenu>
#include <QMessageBox>
#include <QScreen>
#include <QSettings>
#include <QStatusBar>

namespace
{

constexpr int MOST_RECENT_FILES = 8;
constexpr DWORD BACKGROUND = RGB(58, 60, 64);
const char* const RECENT_FILES = "recentFiles";

/// The names that tools keep settings under, each once.
std::vector<const char*> SettingsNames()
{
    std::vector<const char*> vNames;
    for (const Tool& tool : Tools())
    {
        const auto isSame = [&](const char* pszName) { return std::string(pszName) == tool.pszSettings; };
        if (tool.pszSettings && std::ranges::none_of(vNames, isSame))
            vNames.push_back(tool.pszSettings);
    }
    return vNames;
}

} // namespace

CMainWindow::CMainWindow()
    : m_pView(new CPixtaneWidget(this)), m_retoucher(m_pView->Host(), CRetoucher::LongWork::InBackground)
{
    setCentralWidget(m_pView);
    m_pView->View().SetBackgroundColor(BACKGROUND);
    m_pView->setAccessibleName(tr("Photo"));
    m_pView->SetToolKeys([this](UINT uKey) { return UsesKey(uKey); });
    MakeMenus();
    MakePalette();
    MakeOptionsBar();
    MakeTransformBar();
    MakeStatusBar();
    RestoreSettings();
    m_retoucher.SetListener([this](const std::string& strError) { OnChanged(strError); });
    m_pHeldInput = std::make_unique<CHeldInput>(
        *m_pView, [this] { return m_retoucher.IsBusy(); }, [this] { return m_retoucher.State().work.has_value(); },
        [this](std::function<void()> call) { m_retoucher.WhenIdle(std::move(call)); });
    Refresh();
    connect(m_pView, &CPixtaneWidget::DisplayChanged, this, &CMainWindow::UpdateZoomLabel);
    connect(m_pView, &CPixtaneWidget::DisplayChanged, this, &CMainWindow::UpdatePointerLabels);
    connect(m_pView, &CPixtaneWidget::MouseMoved, this, &CMainWindow::FollowPointer);
    connect(m_pView, &CPixtaneWidget::FilesDropped, this,
            [this](const QStringList& vPaths) { OpenFile(vPaths.value(0)); });
    qApp->installEventFilter(this);
    resize(QSize(1100, 780).boundedTo(screen()->availableSize()));
}

CMainWindow::~CMainWindow()
{
    m_retoucher.SetListener({});
    KeepSettings();
}

void CMainWindow::Execute(const std::string& strCommand)
{
    std::string strError;
    if (!m_retoucher.Execute(strCommand, strError))
        QMessageBox::warning(this, tr("That is not possible"), QString::fromStdString(strError));
}

void CMainWindow::RestoreSettings()
{
    for (const char* const pszName : SettingsNames())
    {
        const QByteArray settings = QSettings().value(pszName).toByteArray();
        const std::vector<BYTE> vSettings(settings.begin(), settings.end());
        if (!settings.isEmpty() && !m_retoucher.TakeSettings(pszName, vSettings))
            statusBar()->showMessage(tr("The settings of some tools are of another version and were left out."));
    }
}

void CMainWindow::KeepSettings()
{
    for (const char* const pszName : SettingsNames())
    {
        const std::vector<BYTE> vSettings = m_retoucher.Settings(pszName);
        QSettings().setValue(pszName, QByteArray(reinterpret_cast<const char*>(vSettings.data()),
                                                 static_cast<qsizetype>(vSettings.size())));
    }
}

bool CMainWindow::UsesKey(UINT uKey) const
{
    const auto vKeys = FindTool(m_retoucher.State().strTool)->vKeys;
    return std::ranges::find(vKeys, uKey) != vKeys.end();
}

void CMainWindow::FillRecentMenu()
{
    m_pRecentMenu->clear();
    for (const QString& strPath : QSettings().value(RECENT_FILES).toStringList())
        m_pRecentMenu->addAction(QFileInfo(strPath).fileName(), this, [this, strPath] { OpenFile(strPath); });
    if (m_pRecentMenu->isEmpty())
        m_pRecentMenu->addAction(tr("None yet"))->setEnabled(false);
}

void CMainWindow::RememberRecent(const QString& strPath)
{
    QSettings settings;
    QStringList vPaths = settings.value(RECENT_FILES).toStringList();
    vPaths.removeAll(strPath);
    vPaths.prepend(strPath);
    settings.setValue(RECENT_FILES, vPaths.mid(0, MOST_RECENT_FILES));
}

void CMainWindow::ChooseFile()
{
    const QString strPath =
        QFileDialog::getOpenFileName(this, tr("Open a photo"), {}, tr("Photos (*.jpg *.jpeg *.png *.tif *.tiff)"));
    if (!strPath.isEmpty())
        OpenFile(strPath);
}

void CMainWindow::SaveAs()
{
    CPhoto* const pPhoto = m_retoucher.Photo();
    if (!pPhoto)
        return;
    const QString strPath =
        QFileDialog::getSaveFileName(this, tr("Save the photo"), QString::fromStdString(m_retoucher.State().strPath),
                                     tr("Photos (*.jpg *.jpeg *.png *.tif *.tiff)"));
    if (strPath.isEmpty())
        return;
    QStringList vLosses;
    if (const auto format = FormatOfName(strPath.toStdString()))
    {
        for (const std::string& strLoss : pPhoto->Origin().WhatWouldBeLost(*format))
            vLosses += QString::fromStdString(strLoss);
    }
    const QString strQuestion = tr("This file would not hold: %1. Save it all the same?").arg(vLosses.join(", "));
    if (vLosses.isEmpty() || QMessageBox::question(this, windowTitle(), strQuestion) == QMessageBox::Yes)
        Execute("save " + Quoted(strPath.toStdString()) +
                " --overwrite"); // The dialog has asked about a file that is there.
}

void CMainWindow::OpenFile(const QString& strPath)
{
    Execute(strPath.isEmpty() ? "open-sample" : "open " + Quoted(QFileInfo(strPath).absoluteFilePath().toStdString()));
}

void CMainWindow::ShowOpened(const ProgramState& state)
{
    const QString strPath = QString::fromStdString(state.strPath);
    if (!strPath.isEmpty())
        RememberRecent(strPath);
    m_bFitWhenShown = !isVisible();
    setWindowTitle((strPath.isEmpty() ? tr("Sample") : QFileInfo(strPath).fileName()) + " - retouch");
    statusBar()->clearMessage();
}

void CMainWindow::OnChanged(const std::string& strError)
{
    Refresh();
    if (!strError.empty())
        QMessageBox::warning(this, tr("That is not possible"), QString::fromStdString(strError));
}

winlite::Picture CMainWindow::TakePicture()
{
    static_cast<winlite::QtDesktop&>(winlite::TheDesktop()).PaintNow();
    return winlite::WindowPicture(m_pView->Host().m_hWnd);
}

void CMainWindow::showEvent(QShowEvent* pEvent)
{
    QMainWindow::showEvent(pEvent);
    // Only now the view has its size.
    if (std::exchange(m_bFitWhenShown, false))
        QMetaObject::invokeMethod(
            this, [this] { Execute("fit"); }, Qt::QueuedConnection);
}

bool CMainWindow::eventFilter(QObject* pWatched, QEvent* pEvent)
{
    const bool bKey = pEvent->type() == QEvent::KeyPress || pEvent->type() == QEvent::KeyRelease;
    if (!bKey || !isActiveWindow())
        return QMainWindow::eventFilter(pWatched, pEvent);
    const auto* pKey = static_cast<QKeyEvent*>(pEvent);
    if (pKey->key() == Qt::Key_Escape && pEvent->type() == QEvent::KeyPress && m_retoucher.IsPainting())
    {
        Execute("drop");
        return true;
    }
    if (pKey->key() != Qt::Key_B || pKey->modifiers() != Qt::NoModifier)
        return QMainWindow::eventFilter(pWatched, pEvent);
    if (!pKey->isAutoRepeat())
        Execute(pEvent->type() == QEvent::KeyPress ? "show-original" : "show-result");
    return true;
}

void CMainWindow::UpdateZoomLabel()
{
    m_pZoomLabel->setText(tr("%L1 %").arg(m_pView->View().GetZoom() * 100, 0, 'f', 1));
}

void CMainWindow::FollowPointer(QPoint ptWindow)
{
    m_ptPointer = ptWindow;
    UpdatePointerLabels();
}

void CMainWindow::UpdatePointerLabels()
{
    CPhoto* const pPhoto = m_retoucher.Photo();
    CPoint pt(m_ptPointer.x(), m_ptPointer.y());
    m_pView->View().FromWndToBitmap(pt);
    const bool bInside = pPhoto && pt.x >= 0 && pt.x < pPhoto->Width() && pt.y >= 0 && pt.y < pPhoto->Height();
    if (!bInside)
    {
        m_pPositionLabel->clear();
        m_pColourLabel->clear();
        return;
    }
    const BYTE* pPixel = pPhoto->Row(pt.y) + 4 * pt.x;
    m_pPositionLabel->setText(tr("%L1, %L2").arg(pt.x).arg(pt.y));
    m_pColourLabel->setText(tr("R %1  G %2  B %3").arg(pPixel[2]).arg(pPixel[1]).arg(pPixel[0]));
}

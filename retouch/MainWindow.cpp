#include "retouch/MainWindow.h"

#include "qt/PixtaneWidget.h"
#include "retouch/AutoContrast.h"
#include "retouch/SamplePicture.h"

#include <algorithm>
#include <QApplication>
#include <QFileDialog>
#include <QFileInfo>
#include <QKeyEvent>
#include <QLabel>
#include <QMenuBar>
#include <QMessageBox>
#include <QScreen>
#include <QSettings>
#include <QStatusBar>

namespace
{

constexpr int MOST_RECENT_FILES = 8;
constexpr DWORD BACKGROUND = RGB(58, 60, 64);
const char* const RECENT_FILES = "recentFiles";

} // namespace

CMainWindow::CMainWindow() : m_pView(new CPixtaneWidget(this))
{
    setCentralWidget(m_pView);
    m_pView->View().SetBackgroundColor(BACKGROUND);
    m_pView->setAccessibleName(tr("Photo"));
    MakeMenus();
    MakeStatusBar();
    connect(m_pView, &CPixtaneWidget::DisplayChanged, this, &CMainWindow::UpdateZoomLabel);
    connect(m_pView, &CPixtaneWidget::DisplayChanged, this, &CMainWindow::UpdatePointerLabels);
    connect(m_pView, &CPixtaneWidget::MouseMoved, this, &CMainWindow::UpdatePointerLabels);
    connect(m_pView, &CPixtaneWidget::FilesDropped, this,
            [this](const QStringList& vPaths) { OpenFile(vPaths.value(0)); });
    qApp->installEventFilter(this);
    resize(QSize(1100, 780).boundedTo(screen()->availableSize()));
}

CMainWindow::~CMainWindow()
{
    // The view shows the photo's pixels, which go before it.
    m_pView->View().ClearBitmap(FALSE);
}

void CMainWindow::MakeMenus()
{
    MakeFileMenu();
    MakeImageMenu();
    MakeViewMenu();
}

void CMainWindow::MakeFileMenu()
{
    QMenu* pMenu = menuBar()->addMenu(tr("&File"));
    pMenu->addAction(tr("&Open..."), QKeySequence::Open, this, &CMainWindow::ChooseFile);
    m_pRecentMenu = pMenu->addMenu(tr("Open &Recent"));
    connect(m_pRecentMenu, &QMenu::aboutToShow, this, &CMainWindow::FillRecentMenu);
    pMenu->addAction(tr("Open &Sample Picture"), this, [this] { OpenFile({}); });
    pMenu->addSeparator();
    pMenu->addAction(tr("&Quit"), QKeySequence::Quit, this, &QWidget::close);
}

void CMainWindow::MakeImageMenu()
{
    QMenu* pMenu = menuBar()->addMenu(tr("&Image"));
    pMenu->addAction(tr("&Auto Contrast"), QKeySequence(tr("Ctrl+Shift+L")), this, &CMainWindow::AutoContrast);
    pMenu->addAction(tr("&Revert to Original"), this, &CMainWindow::Revert);
}

void CMainWindow::MakeViewMenu()
{
    QMenu* pMenu = menuBar()->addMenu(tr("&View"));
    QAction* pZoomIn = pMenu->addAction(tr("Zoom &In"), this, [this] { m_pView->StepZoom(1, m_pView->ViewCentre()); });
    pZoomIn->setShortcuts({QKeySequence::ZoomIn, QKeySequence(tr("Ctrl+="))});
    pMenu->addAction(tr("Zoom &Out"), QKeySequence::ZoomOut, this,
                     [this] { m_pView->StepZoom(-1, m_pView->ViewCentre()); });
    pMenu->addAction(tr("&Fit"), QKeySequence(tr("Ctrl+0")), this, [this] { m_pView->ZoomToFit(); });
    pMenu->addAction(tr("O&ne to One"), QKeySequence(tr("Ctrl+1")), this,
                     [this] { m_pView->ZoomAbout(1, m_pView->ViewCentre()); });
    pMenu->addSeparator();
    pMenu->addAction(tr("Hold B to see the original"))->setEnabled(false);
}

void CMainWindow::MakeStatusBar()
{
    m_pPositionLabel = new QLabel(this);
    m_pColourLabel = new QLabel(this);
    m_pZoomLabel = new QLabel(this);
    statusBar()->addWidget(m_pPositionLabel, 1);
    statusBar()->addPermanentWidget(m_pColourLabel);
    statusBar()->addPermanentWidget(m_pZoomLabel);
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
    const QString strAbsolute = QFileInfo(strPath).absoluteFilePath();
    vPaths.removeAll(strAbsolute);
    vPaths.prepend(strAbsolute);
    settings.setValue(RECENT_FILES, vPaths.mid(0, MOST_RECENT_FILES));
}

void CMainWindow::ChooseFile()
{
    const QString strPath =
        QFileDialog::getOpenFileName(this, tr("Open a photo"), {}, tr("Photos (*.jpg *.jpeg *.png)"));
    if (!strPath.isEmpty())
        OpenFile(strPath);
}

void CMainWindow::OpenFile(const QString& strPath)
{
    if (strPath.isEmpty())
    {
        ShowPhoto(RenderSamplePicture(), tr("Sample"));
        return;
    }
    std::string strError;
    std::optional<CPhoto> photo = CPhoto::Load(strPath.toStdString(), strError);
    if (!photo)
    {
        QMessageBox::warning(this, tr("The photo could not be opened"), QString::fromStdString(strError));
        return;
    }
    RememberRecent(strPath);
    ShowPhoto(std::move(*photo), QFileInfo(strPath).fileName());
}

void CMainWindow::ShowPhoto(CPhoto photo, const QString& strName)
{
    // The view lets go of the old pixels before they go.
    std::optional<CPhoto> old = std::exchange(m_photo, std::move(photo));
    m_vOriginal.clear();
    m_pView->View().ShowCoverImage(FALSE, FALSE);
    m_pView->View().SetBitmap(m_photo->Info(), m_photo->Pixels());
    m_pView->ZoomToFit();
    m_bFitWhenShown = !isVisible();
    setWindowTitle(strName + " - retouch");
    statusBar()->clearMessage();
}

void CMainWindow::showEvent(QShowEvent* pEvent)
{
    QMainWindow::showEvent(pEvent);
    // Only now the view has its size.
    if (std::exchange(m_bFitWhenShown, false))
        QMetaObject::invokeMethod(
            this, [this] { m_pView->ZoomToFit(); }, Qt::QueuedConnection);
}

void CMainWindow::KeepOriginal()
{
    if (m_vOriginal.empty())
        m_vOriginal.assign(m_photo->Pixels(), m_photo->Pixels() + m_photo->ByteCount());
}

void CMainWindow::AutoContrast()
{
    if (!m_photo)
        return;
    KeepOriginal();
    StretchContrast({m_photo->Pixels(), m_photo->ByteCount()});
    m_pView->View().UpdateBitmap(m_photo->Info(), m_photo->Pixels(), TRUE);
}

void CMainWindow::Revert()
{
    if (m_vOriginal.empty())
        return;
    std::ranges::copy(m_vOriginal, m_photo->Pixels());
    m_pView->View().UpdateBitmap(m_photo->Info(), m_photo->Pixels(), TRUE);
}

void CMainWindow::ShowOriginal(bool bShow)
{
    if (m_vOriginal.empty())
        return;
    // The original covers the picture, at the same zoom and place.
    Pixtane::CPixtane& view = m_pView->View();
    if (bShow)
    {
        view.vCoverBmpData() = m_vOriginal;
        view.CoverBmpInfo() = m_photo->Info();
    }
    view.ShowCoverImage(bShow, bShow);
}

bool CMainWindow::eventFilter(QObject* pWatched, QEvent* pEvent)
{
    const bool bKey = pEvent->type() == QEvent::KeyPress || pEvent->type() == QEvent::KeyRelease;
    if (!bKey || !isActiveWindow())
        return QMainWindow::eventFilter(pWatched, pEvent);
    const auto* pKey = static_cast<QKeyEvent*>(pEvent);
    if (pKey->key() != Qt::Key_B || pKey->modifiers() != Qt::NoModifier)
        return QMainWindow::eventFilter(pWatched, pEvent);
    if (!pKey->isAutoRepeat())
        ShowOriginal(pEvent->type() == QEvent::KeyPress);
    return true;
}

void CMainWindow::UpdateZoomLabel()
{
    m_pZoomLabel->setText(tr("%1 %").arg(m_pView->View().GetZoom() * 100, 0, 'f', 1));
}

void CMainWindow::UpdatePointerLabels()
{
    const CPoint pt = m_pView->View().GetCursorPos(TRUE);
    const bool bInside = m_photo && pt.x >= 0 && pt.x < m_photo->Width() && pt.y >= 0 && pt.y < m_photo->Height();
    if (!bInside)
    {
        m_pPositionLabel->clear();
        m_pColourLabel->clear();
        return;
    }
    const BYTE* pPixel = m_photo->Row(pt.y) + 4 * pt.x;
    m_pPositionLabel->setText(tr("%1, %2").arg(pt.x).arg(pt.y));
    m_pColourLabel->setText(tr("R %1  G %2  B %3").arg(pPixel[2]).arg(pPixel[1]).arg(pPixel[0]));
}

#pragma once

#include "retouch/Photo.h"

#include <optional>
#include <QMainWindow>

class CPixtaneWidget;
class QLabel;
class QMenu;

/// The program's window: a photo in a view, with menus, keys, recent files and a status bar.
class CMainWindow : public QMainWindow
{
    Q_OBJECT

public:
    CMainWindow();
    ~CMainWindow() override;

    /// Shows a photo file; on failure a message, and the picture before stays. Empty shows the sample picture.
    void OpenFile(const QString& strPath);

protected:
    /// B shows the original while it is held, wherever the focus is in this window.
    bool eventFilter(QObject* pWatched, QEvent* pEvent) override;
    void showEvent(QShowEvent* pEvent) override;

private:
    void MakeMenus();
    void MakeFileMenu();
    void MakeImageMenu();
    void MakeViewMenu();
    void MakeStatusBar();
    void FillRecentMenu();
    void RememberRecent(const QString& strPath);
    void ChooseFile();
    void ShowPhoto(CPhoto photo, const QString& strName);

    void KeepOriginal();
    void AutoContrast();
    void Revert();
    void ShowOriginal(bool bShow);

    void UpdateZoomLabel();
    void UpdatePointerLabels();

    CPixtaneWidget* m_pView;
    QMenu* m_pRecentMenu = nullptr;
    QLabel* m_pZoomLabel = nullptr;
    QLabel* m_pPositionLabel = nullptr;
    QLabel* m_pColourLabel = nullptr;
    std::optional<CPhoto> m_photo;
    std::vector<BYTE> m_vOriginal; ///< The photo's pixels as they were opened; empty while nothing was changed.
    bool m_bFitWhenShown = false;
};

#pragma once

#include "retouch/Retoucher.h"
#include "user/Window.h"

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

    /// The view's part of the window as it stands, after everything pending was painted.
    winlite::Picture TakePicture();

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
    void ShowOpened(const QString& strName);

    QAction* AddCommand(QMenu& menu, const QString& strText, const QList<QKeySequence>& vKeys,
                        const std::string& strCommand);
    void Execute(const std::string& strCommand);

    void UpdateZoomLabel();
    void UpdatePointerLabels();
    void FollowPointer(QPoint ptWindow);

    CPixtaneWidget* m_pView;
    QMenu* m_pRecentMenu = nullptr;
    QLabel* m_pZoomLabel = nullptr;
    QLabel* m_pPositionLabel = nullptr;
    QLabel* m_pColourLabel = nullptr;
    QPoint m_ptPointer{-1, -1}; ///< Window coordinates of the view.
    CRetoucher m_retoucher;
    bool m_bFitWhenShown = false;
};

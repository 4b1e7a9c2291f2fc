#pragma once

#include "program/Retoucher.h"
#include "user/Window.h"

#include <memory>
#include <QMainWindow>

class CChoiceGroup;
class CHeldInput;
class CHintLabel;
class CPhotoFiles;
class COptionsBar;
class CPixtaneWidget;
class CStatusTexts;
class CHistoryDock;
class CNavigatorDock;
class CStraightenBar;
class CTransformBar;
class CWorkBar;
class QMenu;

/// The program's window: a photo in a view, with menus, tools and their options, keys, recent files and a status bar.
class CMainWindow : public QMainWindow
{
    Q_OBJECT

public:
    CMainWindow();
    ~CMainWindow() override;

    /// The view's part of the window as it stands, after everything pending was painted.
    winlite::Picture TakePicture();

    /// Opens a photo file, in the background; on failure a message, and the picture before stays. Empty shows the
    /// sample picture. Asks first when changes would be lost.
    void OpenFile(const QString& strPath);

    /// Keeps the work for a recovery from here on, and asks about work that is to be recovered.
    void KeepWork();

    /// Opens the first of several photos and tells of the others; the sample picture for none.
    void OpenFirst(const QStringList& vPaths);

protected:
    /// B shows the original while it is held, wherever the focus is in this window, and Esc drops a stroke.
    bool eventFilter(QObject* pWatched, QEvent* pEvent) override;
    void showEvent(QShowEvent* pEvent) override;
    void closeEvent(QCloseEvent* pEvent) override;
    void changeEvent(QEvent* pEvent) override;

private:
    void MakeMenus();
    void MakeFileMenu();
    void MakeEditMenu();
    void MakeImageMenu();
    void MakeSelectMenu();
    void MakeViewMenu();
    void MakeHelpMenu();
    void MakePalette();
    void MakeOptionsBar();
    void MakeSessionBars();
    void MakeStatusBar();
    void MakePanels();
    void ShowOriginal(bool bShow);
    void RestorePlace();
    void RestoreSettings();
    void KeepSettings();
    void FillRecentMenu();
    void ShowOpened(const ProgramState& state);
    void ShowTitle(const ProgramState& state);
    void ShowColours();

    QAction* AddCommand(QMenu& menu, const QString& strText, const QList<QKeySequence>& vKeys,
                        const std::string& strCommand);
    QAction* AddSwitch(QMenu& menu, const QString& strText, const QKeySequence& key, const std::string& strOn,
                       const std::string& strOff);
    void AskPixels(const QString& strQuestion, const std::string& strCommand);
    void Execute(const std::string& strCommand);

    void OnChanged(const std::string& strError);
    void Refresh();
    void NameSteps(const ProgramState& state);
    bool UsesKey(UINT uKey) const;
    void UpdateZoomLabel();
    void UpdatePointerLabels();
    void FollowPointer(QPoint ptWindow);

    CPixtaneWidget* m_pView;
    QMenu* m_pRecentMenu = nullptr;
    /// The numbers in the status bar, those worth least first.
    enum StatusText : int
    {
        TEXT_PICKED,
        TEXT_COLOUR,
        TEXT_SELECTION,
        TEXT_POSITION,
        TEXT_ZOOM,
        TEXT_COUNT
    };
    CStatusTexts* m_pTexts = nullptr;
    QPoint m_ptPointer{-1, -1}; ///< Window coordinates of the view.
    CRetoucher m_retoucher;
    CPhotoFiles* m_pFiles = nullptr;
    bool m_bMayClose = false; ///< The person has said what is to become of the changes.
    std::unique_ptr<CHeldInput> m_pHeldInput;
    unsigned m_uPhotos = 0; ///< Photos that have been shown, as far as the window knows.
    QByteArray m_profile;   ///< Whose colours are shown.
    bool m_bFitWhenShown = false;
    bool m_bOriginal = false; ///< B is held.
    CHistoryDock* m_pHistory = nullptr;
    CNavigatorDock* m_pNavigator = nullptr;
    QAction* m_pUndo = nullptr;
    QAction* m_pRedo = nullptr;
    QList<QAction*> m_vOnSelection; ///< What there is nothing to do for without a selection.
    QAction* m_pHideOutline = nullptr;
    QAction* m_pStillOutline = nullptr;
    QAction* m_pTint = nullptr;
    CChoiceGroup* m_pTools = nullptr;
    COptionsBar* m_pOptions = nullptr;
    CStraightenBar* m_pStraighten = nullptr;
    CTransformBar* m_pTransform = nullptr; ///< In the options' place while the selection is being transformed.
    QAction* m_pCancel = nullptr;          ///< Stops the work in the background.
    CWorkBar* m_pWork = nullptr;
    CHintLabel* m_pHint = nullptr;
};

#pragma once

#include "qt/ViewHost.h"
#include "retouch/History.h"
#include "retouch/Photo.h"
#include "retouch/TransformTool.h"
#include "selection/RegionSelector.h"
#include "tools/ImageMover.h"

#include <optional>
#include <string>

/// What a recorded session says after a command that the program had to refuse.
inline constexpr const char* REFUSED_COMMAND = "refused";

/// The program without its window: the photo in a view, its tools and history, and everything a person can do with them
/// as commands of one line of text. Menus, keys, recorded sessions and the tour all come through Execute.
/// User-interface thread.
class CRetoucher
{
public:
    /// The host must outlive it.
    explicit CRetoucher(CViewHost& host);
    ~CRetoucher();
    CRetoucher(const CRetoucher&) = delete;
    CRetoucher& operator=(const CRetoucher&) = delete;

    /// Carries a command out, like "open /home/me/photo.jpg" or "feather 5"; retouch/README.md lists them. FALSE, with
    /// a message for the person and nothing changed, when that is not possible.
    bool Execute(const std::string& strCommand, std::string& strError);

    /// Is told after each command and each change of the selection.
    void SetListener(std::function<void()> changed) { m_Changed = std::move(changed); }

    /// Shows a photo that is no file: as opening one does, but it is not written down.
    void ShowPhoto(CPhoto photo) { Show(std::move(photo)); }

    /// The photo; NULL before the first was opened.
    CPhoto* Photo() { return m_photo ? &*m_photo : nullptr; }

    Pixtane::CPixtane& View() { return m_host.View(); }
    const CHistory& History() const { return m_history; }

    // What is chosen, in the words of the commands.
    const std::string& ToolName() const { return m_strTool; }
    std::string RuleName() const;
    int Feather() const { return m_selector.GetFeatherRadius(); }
    int Tolerance() const { return m_selector.GetTorlerance(); }
    bool IsTransforming() const;
    bool IsPickingColour() const { return m_bPickingColour; }
    bool IsOutlineHidden() const { return m_bOutlineHidden; }
    bool IsOutlineStill() const { return m_bOutlineStill; }
    bool IsTinted() const { return m_bTinted; }

    /// The box of what is selected, in bitmap pixels; empty when nothing is.
    CRect SelectionBox();

    /// The rectangle of the transform that is under way, in bitmap pixels.
    CRect TransformRect();

    /// The tools' settings as their blobs, to be kept over a restart; taken over as commands. FALSE for a blob that the
    /// tool refuses.
    std::vector<BYTE> SelectorSettings() const;
    bool TakeSelectorSettings(const std::vector<BYTE>& vSettings);

private:
    static constexpr const char* TRANSFORM = "transform"; ///< The tool's name.

    struct Command;
    static const Command s_vCommands[];

    // The document.
    bool Open(const std::string& strPath, std::string& strError);
    void Show(CPhoto photo);
    void AutoContrast();
    bool BrightnessContrast(const std::string& strValues, bool bPreview, std::string& strError);
    void ApplyBrightnessContrast(std::span<BYTE> vPixels, int iBrightness, int iContrast);
    void EndPreview();
    void Revert();
    void ShowOriginal(bool bShow);
    void ShowCover(std::vector<BYTE> vPixels);
    void BeginPixels();
    void PixelsChanged(const std::string& strName);

    // The history.
    CHistory::State TakeState(const std::string& strName);
    void Undo();
    bool AddStep(const std::string& strName);
    void GoTo(const CHistory::State* (CHistory::*pStep)());

    // The selection.
    void SelectAll();
    void SelectNone();
    void Reselect();
    bool GrowOrShrink(const std::string& strPixels, bool bGrow, std::string& strError);
    bool FeatherSelection(const std::string& strPixels, std::string& strError);
    bool HasSelection();
    void RestoreSelection(const CHistory::State& state);
    void SelectMask(const std::vector<BYTE>& vMask, const std::string& strName);
    bool SelectionChanged(const std::string& strName);
    void HideOutline(bool bHide);
    void StillOutline(bool bStill);
    void Tint(bool bTint);
    void UpdateTint();

    // The tools.
    bool ChooseTool(const std::string& strName, std::string& strError);
    bool ChooseRule(const std::string& strName, std::string& strError);
    bool SetFeather(const std::string& strPixels, std::string& strError);
    bool SetTolerance(const std::string& strLevels, std::string& strError);
    void RepeatPick();
    void InvertSelection();
    bool SelectColour(const std::string& strPixel, std::string& strError);
    void PickColour();

    // The transform of the selection.
    bool StartTransform(std::string& strError);
    bool TransformTo(const std::string& strRect, std::string& strError);
    void PlaceTransform(const CRect& rc);
    bool NudgeTransform(UINT uKey);
    void TransformChanged();
    void EndTransform(bool bApply);

    void LoadTool();
    void HoldHand(bool bHold);
    LRESULT OnNotified(UINT uCode);
    void OnKey(UINT uKey, bool bDown);
    void CommitSelection();
    void Changed();

    CViewHost& m_host;
    std::function<void()> m_Changed;
    std::optional<CPhoto> m_photo;
    std::optional<CTiledSnapshot> m_original; ///< The photo's pixels as they were opened, once something was changed.
    CHistory m_history;
    CHistory::State m_lastSelection; ///< The selection that was dropped last, for Reselect.
    Pixtane::EmbeddedTool::RegionSelector m_selector;
    CTransformTool m_modifier;
    Pixtane::EmbeddedTool::ImageMover m_hand;
    std::string m_strTool = "hand";
    std::string m_strPending; ///< What the selection's change that is under way will be called; empty for none.
    struct Pick
    {
        CPoint pt;   ///< Bitmap pixel.
        bool bRange; ///< A colour range, otherwise the wand.
        bool bStep;  ///< It changed something.
    };
    std::optional<Pick> m_pick;    ///< The last selection by colour, while nothing else has changed since.
    std::string m_strToolBefore;   ///< The tool to come back to from a transform.
    CRect m_rcBefore;              ///< What the transform began with.
    bool m_bPickingColour = false; ///< The next click in the picture chooses a colour range.
    bool m_bHandHeld = false;      ///< The hand is loaded while the space bar is down.
    bool m_bOutlineHidden = false;
    bool m_bOutlineStill = false;
    bool m_bTinted = false;
    std::vector<CViewHost::Subscription> m_vSubscriptions;
};

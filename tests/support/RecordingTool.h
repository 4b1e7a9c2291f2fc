#pragma once

#include "view/EmbeddedTool.h"

#include <cstddef>
#include <cwchar>
#include <functional>
#include <map>
#include <string>

/// A tool that logs every call with its arguments, consumes what it is told to, and runs a test's code inside any call.
class CRecordingTool : public Pixtane::CPixtane::IEmbeddedTool
{
public:
    explicit CRecordingTool(std::string& strLog, const wchar_t* pszName = L"recording") : m_pLog(&strLog)
    {
        std::wcsncpy(szToolName, pszName, MAX_NAME - 1);
        szToolName[MAX_NAME - 1] = 0;
    }

    std::map<std::string, int> results; ///< By call name; 0 without an entry (OnLoad: 1).
    std::function<void(const std::string& strCall)> inside;
    bool bLogPaints = false;

    Pixtane::CPixtane* View() const { return pView; }

    const wchar_t* GetToolName() override { return szToolName; }
    int OnLoad(Pixtane::CPixtane& view) override
    {
        IEmbeddedTool::OnLoad(view);
        results.try_emplace("load", 1);
        return Log("load", "");
    }
    void SerializeToolSettings(std::vector<BYTE>&) const override {}
    int OnUnload() override { return Log("unload", ""); }
    void Reset() override { Log("reset", ""); }
    int OnPrePaint(CDC&, CRect&) override { return bLogPaints ? Log("pre", "") : 0; }
    int OnPostPaint(CDC&, CRect&) override { return bLogPaints ? Log("post", "") : 0; }
    int OnSetCursor(CWnd*, UINT, UINT) override { return bLogPaints ? 0 : Quiet("cursor"); }
    int OnTimer(UINT_PTR nIDEvent) override { return Log("timer", std::to_string(nIDEvent)); }
    int OnLButtonDown(UINT nFlags, CPoint pt) override { return Log("down", Mouse(nFlags, pt)); }
    int OnLButtonUp(UINT nFlags, CPoint pt) override { return Log("up", Mouse(nFlags, pt)); }
    int OnLButtonDblClk(UINT nFlags, CPoint pt) override { return Log("double", Mouse(nFlags, pt)); }
    int OnMouseMove(UINT nFlags, CPoint pt) override { return Log("move", Mouse(nFlags, pt)); }
    int OnMouseWheel(UINT, short zDelta, CPoint) override { return Log("wheel", std::to_string(zDelta)); }
    int OnKeyDown(UINT nChar, UINT, UINT nFlags) override { return Log("key", Key(nChar, nFlags)); }
    int OnKeyUp(UINT nChar, UINT, UINT) override { return Log("keyup", Key(nChar, 0)); }
    int OnSysKeyDown(UINT nChar, UINT, UINT) override { return Log("syskey", Key(nChar, 0)); }
    int OnSysKeyUp(UINT nChar, UINT, UINT) override { return Log("syskeyup", Key(nChar, 0)); }
    int OnCaptureChanged(CWnd* pWnd) override { return Log("capture", pWnd ? "other" : "none"); }
    void OnZoomChanged() override { Log("zoomed", ""); }
    void OnDispPosChanged() override { Log("scrolled", ""); }

private:
    static constexpr std::size_t MAX_NAME = Pixtane::CPixtane::MAX_TOOLNAME;

    int Log(const std::string& strCall, const std::string& strArguments)
    {
        *m_pLog += strCall + (strArguments.empty() ? "" : "(" + strArguments + ")") + " ";
        return Quiet(strCall);
    }
    int Quiet(const std::string& strCall)
    {
        if (inside)
            inside(strCall);
        const auto it = results.find(strCall);
        return it == results.end() ? 0 : it->second;
    }
    static std::string Mouse(UINT nFlags, CPoint pt)
    {
        return std::to_string(nFlags) + ":" + std::to_string(pt.x) + "," + std::to_string(pt.y);
    }

    /// The key, and an s when the scroll flag is set.
    static std::string Key(UINT nChar, UINT nFlags) { return std::to_string(nChar) + (nFlags & 8 ? "s" : ""); }

    std::string* m_pLog;
};

#pragma once

#include "program/ProgramParts.h"
#include "program/Tool.h"

#include <memory>
#include <string>

// What the rows of the brushes are made of. They share one pen, so that its size is the same when a person changes
// brushes.

inline constexpr const char* PICK_SOURCE_COMMAND = "pick-source";

extern const ToolOption BRUSH_SIZE;
extern const ToolOption BRUSH_HARDNESS;
extern const ToolOption BRUSH_STRENGTH;
extern const ToolOption CLONE_ALIGNED;
extern const ToolOption DODGE_OR_BURN;
extern const ToolOption BRUSH_EFFECT;

Pixtane::CPixtane::IEmbeddedTool& PrepareClone(CToolBox& tools);
Pixtane::CPixtane::IEmbeddedTool& PrepareDodge(CToolBox& tools);
Pixtane::CPixtane::IEmbeddedTool& PrepareEffect(CToolBox& tools);
CPainter* CloneBrush(const CToolBox& tools);
CPainter* DodgeBrush(const CToolBox& tools);
CPainter* EffectBrushOf(const CToolBox& tools);

/// The next click sets the source of the clone stamp.
std::unique_ptr<CToolSession> MakeSourcePick(ProgramParts& parts);

/// Sets it; FALSE, with a message, outside the photo. Bitmap pixels.
bool SetCloneSource(ProgramParts& parts, CPoint ptBitmap, std::string& strError);

/// Forgets where strokes were and where they copy from: there is another photo.
void ForgetStrokes(CToolBox& tools);

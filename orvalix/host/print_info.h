/// @file
/// What the framework tells a view about a print job.
#pragma once

#include "orvalix/host/export.h"
#include "orvalix/host/host_types.h"

/// A print job as the printing callbacks see it.
class ORVALIX_API CPrintInfo {
 public:
  BOOL m_bPreview = FALSE;          ///< the page goes to the screen
  BOOL m_bDirect = FALSE;           ///< printed without asking
  BOOL m_bContinuePrinting = TRUE;  ///< cleared to end the job
  UINT m_nCurPage = 1;              ///< the page at hand, from 1 on
  UINT m_nNumPreviewPages = 0;      ///< pages shown side by side in a preview; 0: not known
  RECT m_rectDraw{};                ///< the usable part of the page, in pixels of the device
};

/// @file
/// The object that a program makes for one of its windows: it owns the bitmap, the rendering
/// context and all charts, and runs every frame.
#pragma once

#include <memory>

#include "orvalix/chart/fresh_area.h"
#include "orvalix/foundation/object_list.h"
#include "orvalix/foundation/value_types.h"
#include "orvalix/host/host.h"

class CAxes3D;
class CChart3D;
class CDIBSection;
class CHeader3D;
class CLegend3D;
class COpenGL;
class CTransform3D;

/// A view draws its charts into an off-screen bitmap and copies that to a window, prints it or
/// writes it to a file.
///
/// The bitmap is made once, as large as the screen or as the constructor says, and is never
/// resized: a larger window is drawn only up to the bitmap's size. Every drawing makes the view's
/// own OpenGL context current, so several views live in one program.
///
/// A view and all that it owns belong to one thread at a time; one that hands them on leaves the
/// context first (COpenGL::MakeNonCurrent()). Only one thread of a program at a time makes, loads,
/// saves or draws charts, also those of different views: what counts them isn't guarded.
///
/// Properties are stored as they are given and take effect with the next drawing.
class ORVALIX_API CChartView3D {
 public:
  /// Defaults only; no window, no bitmap: nothing can be drawn.
  CChartView3D();
  /// A view with a bitmap as large as the screen. When the window has no handle yet, bitmap and
  /// context are made by the first DrawViewScreen(CDC*).
  /// @param wnd the window; not owned, must outlive the view
  /// @throws CErr3D type 11, class 6, "CChartView3D" for null; otherwise as InitDeviceContext
  ///   does: type 14 "InitDeviceContext", type 3 "MakeCompatibleBitmap", "MakeCompatibleOpenGL",
  ///   type 18 when no OpenGL can be had
  explicit CChartView3D(CWnd* wnd);
  /// A view with a bitmap of width x height pixels; an extent of 0 makes one pixel.
  /// @throws CErr3D as above
  CChartView3D(CWnd* wnd, int width, int height);
  /// Deletes the charts and legends, then the context, then the bitmap.
  ~CChartView3D();
  CChartView3D(const CChartView3D&) = delete;
  CChartView3D& operator=(const CChartView3D&) = delete;

  /// 1.0.
  double GetVersionNumber() const;

  /// @name Charts
  /// Drawn in the order in which they were made. The view owns them; callers never delete them.
  /// @{

  /// Makes an empty chart that fills the view.
  /// @throws CErr3D type 3, class 6, "NewChart3D"
  CChart3D* NewChart3D();
  /// Makes a chart with a transform, and an axes frame, for the world range from `min` to `max`.
  /// @throws CErr3D type 3, class 6, "NewChart3D"
  CChart3D* NewChart3D(const point3Dtype& min, const point3Dtype& max);
  /// The same; the transform, which the chart owns, is also stored through `transform`.
  CChart3D* NewChart3D(const point3Dtype& min, const point3Dtype& max, CTransform3D** transform);
  /// The same; the axes frame, which the chart owns, is also stored through `axes`.
  CChart3D* NewChart3D(const point3Dtype& min, const point3Dtype& max, CTransform3D** transform,
                       CAxes3D** axes);
  /// Addition: number of charts and the one at `index`, from 0 (null beyond the end).
  int GetNumCharts() const;
  CChart3D* GetChart(int index) const;
  /// @}

  /// @name Legends
  /// Drawn over the charts, in the order in which they were made. The view owns them; callers never
  /// delete them.
  /// @{

  /// Makes a legend that fills the view: give it a position and entries.
  /// @throws CErr3D type 3, class 6, "NewLegend3D"
  CLegend3D* NewLegend3D();
  /// Addition: number of legends and the one at `index`, from 0 (null beyond the end).
  int GetNumLegends() const;
  CLegend3D* GetLegend(int index) const;
  /// @}

  /// @name Drawing
  /// @{

  /// For a paint handler: draws the view at the size of the window's client area and copies it to
  /// `dc` at (0, 0), after making bitmap and context if that hasn't been done. Does nothing while
  /// the view is being printed, as do the other two.
  /// @throws CErr3D type 14, class 6, "DrawViewScreen" for a null device context
  void DrawViewScreen(CDC* dc);
  /// The same at width x height pixels, copied to (x, y).
  void DrawViewScreen(CDC* dc, int x, int y, int width, int height);
  /// Draws at client-area size into the window's own device context. Does nothing for a window
  /// without a handle or a view that has no bitmap yet.
  /// @throws CErr3D type 14, class 6, "InitDeviceContext" when the window gives no device context
  void DrawViewScreen();
  /// Draws the view at the bitmap's size and writes it as a bitmap file. A file of that name stays
  /// as it was until the new one is complete, and when it can't be completed.
  /// @throws CErr3D type 8, class 6, "SaveToFile" when the view has no bitmap yet; class 9 as
  ///   CDIBSection::SaveDIB()
  void SaveToFile(const CString& name);
  /// Draws the view at the bitmap's size and puts the picture on the clipboard as a bitmap in the
  /// depth of the window: see SetClipboardData(). Does nothing for a window without a handle, or
  /// when another thread has the clipboard open.
  /// @throws CErr3D class 6, "CopyToClipboard": type 14 when the window gives no device context,
  ///   type 8 when the view has no bitmap yet, type 3 when memory runs out
  void CopyToClipboard();
  /// Addition: draws the view at the bitmap's size and writes it as a PNG file of 24-bit colour,
  /// which loses nothing of the picture. Replaces a file of that name as SaveToFile() does.
  /// @throws CErr3D class 6, "SaveToPng": type 8 when the view has no bitmap yet, type 6 when the
  ///   file can't be made, type 7 when a write fails, type 2 when memory runs out
  void SaveToPng(const CString& name);
  /// @}

  /// @name Printing
  /// A printout is the view drawn at the bitmap's size, stretched over a place on the page. Job and
  /// page belong to the host: it starts both, calls OnPrint() for each page, and ends them.
  /// @{

  /// For a print handler: prints the view, then asks for the whole window to be redrawn. Drawing to
  /// the screen does nothing while this runs.
  /// @param info not consulted; may be null
  /// @throws CErr3D type 8, class 6, "OnPrint" when the view has no bitmap yet; class 9 as
  ///   CDIBSection::PrintDIB(), type 9 "PrintDIB" for a null device context
  void OnPrint(CDC* dc, CPrintInfo* info);
  /// For a handler of the job's end: does nothing.
  void OnEndPrinting(CDC* dc, CPrintInfo* info);
  /// Prints the view; does nothing except while OnPrint() runs.
  /// @throws CErr3D class 9 as CDIBSection::PrintDIB()
  void DrawViewPrinter(CDC* dc);
  /// 1 while OnPrint() runs, else 0.
  int GetPrintingState() const;
  /// Where the picture goes on the page: 1 fits it, 3 takes the normalised print rectangle, others
  /// fill the page; see CDIBSection::CalculatePrintRect(), which is given the lowest 16 bits.
  /// Default 1. Not saved in chart files.
  void SetPrintScaleMode(int mode);
  int GetPrintScaleMode() const;
  /// The part of the page that scale mode 3 fills, in fractions of the page. Default 0, 0, 1, 1.
  /// Not saved in chart files.
  void SetNormPrintRect(const REALRECT& rectangle);
  void GetNormPrintRect(REALRECT& rectangle) const;
  /// @}

  /// @name Chart file
  /// @{

  /// Writes the view with everything in it: docs/chart-file.md tells the format. A file of that
  /// name stays as it was until the new one is complete, and when it can't be completed; but
  /// devices, files with several names, files of another owner, and files in folders that take no
  /// new ones are written in place.
  /// @throws CErr3D "Save": type 6, class 6 when the file can't be made; type 7, or type 2 when
  ///   memory runs out, of the class in whose record it happened
  void Save(const CString& name) const;
  /// Replaces everything in the view by what the file holds. When the file can't be opened the
  /// view is unchanged; after any later failure it keeps what was loaded so far.
  ///
  /// Files are not trusted: none makes the library take more memory than a small multiple of its
  /// own size. A file that ends early is no failure where it ends between two fields: what it
  /// doesn't hold keeps its defaults.
  /// @throws CErr3D "Load": type 5, class 6 when the file can't be opened; type 7 for a file that
  ///   contradicts itself or can't be read, of the class in whose record it happened; type 2 or 3
  ///   when memory runs out. For a picture's memory: type 1, class 8, "LoadBitmapFile".
  void Load(const CString& name);
  /// @}

  /// @name Properties
  /// @{

  /// Default white; the alpha is not used.
  void SetViewBkColor(const RGBDType& color);
  RGBDType GetViewBkColor() const;
  /// Stored and saved only. Default 2.
  void SetViewBkMode(int mode);
  int GetViewBkMode() const;
  /// Default black.
  void SetViewBorderColor(const RGBDType& color);
  RGBDType GetViewBorderColor() const;
  /// Line width of the frame in pixels. Default 1.
  void SetViewBorderThickness(double thickness);
  double GetViewBorderThickness() const;
  /// 0 leaves the frame round the view out. Default 1.
  void EnableBorder(int flag);
  int GetBorderEnable() const;
  /// Face, weight (700 is bold) and number of characters, from code 0, of all texts; the next
  /// drawing registers the font. Default "Arial", 700, 128.
  /// @throws CErr3D type 2, class 6, "SetFont"
  void SetFont(const CString& name, int weight, int characterCount);
  void SetFont(const CString& name, int weight, int italics, int underline, int characterCount);
  /// The face.
  CString GetFontName() const;
  /// The weight; 700 is bold.
  int GetFontWeight() const;
  /// Default 0.
  void SetFontItalics(int flag);
  int GetFontItalics() const;
  /// Default 0.
  void SetFontUnderline(int flag);
  int GetFontUnderline() const;
  /// The rendering context, owned by the view; null until the view is initialised.
  COpenGL* GetOpenGLPntr() const;
  /// Addition: the titles and the footer of the whole view, owned by the view; they lie under the
  /// charts. Null until the view is initialised or loaded.
  CHeader3D* GetHeader() const;
  /// Addition: the bitmap, owned by the view; null until the view is initialised.
  CDIBSection* GetDIBSection() const;
  /// Size in pixels of the last drawing.
  void GetViewSize(int& width, int& height) const;
  /// Addition: 707 in a live object.
  int GetClassTag() const;
  /// @}

 private:
  friend class CChart3D;

  template <class Record, class Self>
  static void RecordFields(Record& record, Self& self);
  template <class... Arguments>
  CChart3D* AppendChart(Arguments... arguments);

  void InitChartViewDefaults();
  void InitDeviceContext(bool useScreenSize);
  void InitChartView3D(CDC* dc);
  void MakeCompatibleDC(CDC* dc);
  void MakeCompatibleBitmap(int width, int height, CDC* dc);
  void MakeCompatibleOpenGL(CDC* dc);
  void ActivateBitmap(bool active);
  void DeleteBitmap();
  void DeleteCharts();
  void DeleteLegends();
  void DeleteChartViewObjects();
  void DrawToDC(CDC* dc, int x, int y);
  void DrawForFile(const char* place);
  void EndPrinting();
  void DrawView();
  void DrawBorder();
  void DrawHeader();
  /// @param isFresh true while the view has only been cleared
  void DrawCharts(bool isFresh);
  /// True where the first chart covers the view's border, as it does unless somebody moves it.
  bool IsBorderHidden() const;
  void DrawLegends();
  void RegisterChangedFont();
  /// What a chart has to clear before it is drawn to these pixels, as COpenGL::Clear() takes it.
  int WhatToClear(const GLViewportType& pixels, const RGBDType& color);
  void CopyBitmap(CDC* dc, int x, int y, int width, int height);
  void SetViewSizeWindow();
  void SetViewSizeSubWindow(int width, int height);
  void SetViewSizeBitmap();

  CWnd* m_window;     ///< not owned
  int m_bitmapWidth;  ///< pixels of the bitmap
  int m_bitmapHeight;
  int m_requestedWidth;  ///< pixels asked for
  int m_requestedHeight;
  int m_viewWidth;  ///< pixels of the current drawing
  int m_viewHeight;
  double m_viewAspect;       ///< height / width of the current drawing
  double m_borderThickness;  ///< pixels
  RGBDType m_viewBkColor;
  RGBDType m_borderColor;
  orvalix::FreshArea m_fresh;  ///< of the frame that is being drawn; nothing between frames
  int m_viewBkMode;            ///< stored and saved only
  int m_printScaleMode;        ///< as CDIBSection::PrintDIB() takes it
  bool m_deviceInitialized;    ///< bitmap and context exist
  int m_fontCharacters;        ///< character codes, from 0, that have glyphs
  REALRECT m_normPrintRect;    ///< fractions of the page, for scale mode 3
  int m_printing;              ///< 1 while OnPrint() runs
  int m_borderEnable;
  bool m_fontChanged;  ///< the next drawing registers the font
  int m_fontItalics;
  int m_fontUnderline;
  CString m_fontName;
  int m_fontWeight;
  int m_classTag;            ///< 707 marks a live object
  HGDIOBJ m_previousBitmap;  ///< what m_memoryDC held before the bitmap
  // A device context lets go of its bitmap, and a rendering context of both, when it is deleted:
  // so these stand in this order.
  std::unique_ptr<CDIBSection> m_dib;
  CDC m_memoryDC;
  std::unique_ptr<COpenGL> m_openGL;
  std::unique_ptr<CHeader3D> m_header;
  orvalix::ObjectList<CChart3D> m_charts;
  orvalix::ObjectList<CLegend3D> m_legends;
};

/// @file
/// The titles and the footer of a view or a chart.
#pragma once

#include <memory>

#include "orvalix/foundation/value_types.h"
#include "orvalix/host/host.h"
#include "orvalix/render/kept_drawing.h"

class COpenGL;
class CTextObj3D;
class CTransform3D;

/// Up to three centred lines of text in a rectangle that spans -1 to 1 both ways: two titles at the
/// top and a footer at the bottom. A view has one for itself, a chart one for its rectangle.
class ORVALIX_API CHeader3D {
 public:
  /// Defaults, with three empty texts.
  /// @throws CErr3D type 3, class 14, "InitHeaderDefaults"
  CHeader3D();
  /// Defaults, then InitHeaders().
  explicit CHeader3D(COpenGL* context);
  /// Deletes the texts and the transform.
  ~CHeader3D();
  CHeader3D(const CHeader3D&) = delete;
  CHeader3D& operator=(const CHeader3D&) = delete;

  /// Binds the header and its texts to a context, which must outlive the header's use, to its
  /// current font, and to a new transform.
  /// @throws CErr3D class 14, "InitHeaders": type 16 for null or something that is no live context,
  ///   type 3; type 17, class 19 when the context has no current font
  void InitHeaders(COpenGL* context);

  /// @name Texts
  /// Empty by default; an empty text takes no room.
  /// @{

  /// The top line.
  void SetTitle1(const CString& text);
  CString GetTitle1() const;
  /// The line below, or the top line where there is no first title.
  void SetTitle2(const CString& text);
  CString GetTitle2() const;
  /// The bottom line.
  void SetFooter(const CString& text);
  CString GetFooter() const;
  /// Addition: the first title, owned here: its colour, size and so on can be set.
  CTextObj3D* GetTitle1Obj() const;
  /// Addition: the same for the second title.
  CTextObj3D* GetTitle2Obj() const;
  /// Addition: the same for the footer.
  CTextObj3D* GetFooterObj() const;
  /// @}

  /// 0 leaves the header out of the picture. Default 1.
  void EnableHeader(int flag);
  int GetHeaderEnable() const;
  /// Height / width of the rectangle; the owner sets it before each drawing. Default 1.
  void SetViewAspect(double aspect);
  /// Size factor of the texts. Default 1.
  void SetFontHeightSF(double factor);
  double GetFontHeightSF() const;
  /// Stored and saved only. Default 0.1.
  void SetFontSize(double size);
  double GetFontSize() const;
  /// Addition: 1212 in a live object.
  int GetClassTag() const;

  /// Draws the texts that aren't empty. The context must be current, its viewport the rectangle.
  void DrawHeader();

  /// Writes the header's record, with its texts', to an open file. Null does nothing.
  /// @throws CErr3D type 7, "Save", of class 14, or 19 for a text
  void Save(void* file) const;
  /// Reads the record from an open file. The counter becomes the stored one; the transform stays.
  /// Null does nothing.
  /// @throws CErr3D type 7, "Load", of class 14, or 19 for a text
  void Load(void* file);

  static int nSelfID;  ///< headers counted so far; Load() overwrites it

 private:
  template <class Record, class Self>
  static void RecordFields(Record& record, Self& self);

  friend class CChartView3D;

  void InitHeaderDefaults();
  /// True when DrawHeader() changes the picture.
  bool DrawsAnything() const;
  void DrawLines();

  COpenGL* m_context;     ///< not owned
  double m_headerMargin;  ///< distance of the outer lines from the edges, in normalised units
  double m_viewAspect;    ///< height / width
  double m_fontHeightSF;  ///< size factor of the texts
  double m_fontSize;      ///< stored and saved only
  int m_transformID;      ///< id of m_transform, or as loaded
  int m_classTag;         ///< 1212 marks a live object
  int m_headerEnable;
  std::unique_ptr<CTransform3D> m_transform;
  std::unique_ptr<CTextObj3D> m_title1;
  std::unique_ptr<CTextObj3D> m_title2;
  std::unique_ptr<CTextObj3D> m_footer;
  orvalix::KeptDrawingSlot m_kept;  ///< what was drawn last
};

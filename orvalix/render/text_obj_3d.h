/// @file
/// One text that stands in a chart.
#pragma once

#include "orvalix/foundation/value_types.h"
#include "orvalix/host/host.h"

class CFont3D;
class COpenGL;
class CTransform3D;

/// A string drawn as extruded glyphs: placed in a chart, justified about its place, lying in one of
/// four text planes, turned and mirrored there. Its size depends on the font, not on the chart's
/// scales.
///
/// A text that is bound to no context, font and transform draws nothing and measures 0.
class ORVALIX_API CTextObj3D {
 public:
  /// Defaults only; bound to nothing.
  CTextObj3D();
  /// Defaults, then InitTextObj() and SetString().
  CTextObj3D(COpenGL* context, CFont3D* font, CTransform3D* transform, CString const& text);

  /// Sets every property to its default and counts the text.
  void InitTextObjDefaults();
  /// Binds the text; none of the three is owned, and each must outlive the text's use.
  /// @throws CErr3D class 19, "InitTextObj": type 16, 17 or 15 for a context, a font or a transform
  ///   that is null or no live one; the text is then bound to nothing
  void InitTextObj(COpenGL* context, CFont3D* font, CTransform3D* transform);

  /// @name Properties
  /// @{

  /// One byte per character, in Windows Latin-1. Default empty.
  /// @throws CErr3D type 2, class 19, "SetString"
  void SetString(CString const& text);
  /// @throws CErr3D type 2, class 19, "GetString"
  CString GetString() const;
  void GetString(CString& text) const;
  /// Place in world coordinates, where OutText() draws. Default (0, 0, 0).
  void SetLocation(point3Dtype const& location);
  point3Dtype GetLocation() const;
  /// Place in normalised coordinates, where OutTextNorm() draws; OutText() overwrites it.
  /// Default (0, 0, 0).
  void SetNormLocation(point3Dtype const& location);
  point3Dtype GetNormLocation() const;
  /// What of the text lies at its place. x: 0 its left end, 1 its middle, 2 its right end. y: 0
  /// its base line, 1 the middle, 2 the top. Other codes act as 0. Default 0 and 0.
  void SetJustify(int x, int y);
  /// x alone.
  void SetXJustify(int x);
  int GetXJustify() const;
  /// y alone.
  void SetYJustify(int y);
  int GetYJustify() const;
  /// Both; null pointers are passed over.
  void GetJustify3D(int* x, int* y) const;
  /// Default opaque black; the alpha is not used.
  void SetColor(RGBDType const& color);
  RGBDType GetColor() const;
  /// 0 lies in the chart's x-y plane, 1 in x-z, 2 in y-z; 3, and any other number, faces the
  /// viewer however the chart is turned. Default 3.
  void SetTextPlane(int plane);
  int GetTextPlane() const;
  /// Degrees within the text plane. Default 0.
  void SetRotation(int degrees);
  int GetRotation() const;
  /// Nonzero mirrors by half a turn about x. Default 0.
  void SetFlipX(int flag);
  int GetFlipX() const;
  /// Nonzero mirrors by half a turn about y. Default 0.
  void SetFlipY(int flag);
  int GetFlipY() const;
  /// Multiplies the font's size. Default 1.
  void SetCharSize(double size);
  double GetCharSize() const;
  /// Stored and saved only. Default 0.
  void SetClipping(int flag);
  int GetClipping() const;
  /// 0 leaves the text out of the picture. Default 1.
  void EnableTextObj(int flag);
  /// 0 while the text is left out.
  int GetTextEnable() const;
  /// Addition: id of the transform, as bound or as loaded.
  int GetTransformID() const;
  /// Addition: 1515 in a live object.
  int GetClassTag() const;
  /// @}

  /// Width in normalised units as the font tells it, without the char size.
  double TextWidth() const;
  /// Height in normalised units as the font tells it, without the char size.
  double TextHeight() const;

  /// @name Drawing
  /// The text's context must be current.
  /// @{

  /// Draws at the world place and leaves the transform's text matrix loaded.
  void OutText();
  /// Draws at the normalised place and leaves the matrix as it was.
  void OutTextNorm();
  /// Brings the graph transform and the font transform of the text's transform up to date and loads
  /// the graph transform.
  void Transform();
  /// @}

  /// @name Record
  /// @{

  /// Writes the text's record to an open file. Null does nothing.
  /// @throws CErr3D type 7, class 19, "Save"
  void Save(void* file) const;
  /// Reads the record from an open file. The counter becomes the stored one. Null does nothing.
  /// @throws CErr3D type 7, class 19, "Load"
  void Load(void* file);
  /// @}

  static int nSelfID;  ///< texts counted so far; Load() overwrites it

 private:
  template <class Record, class Self>
  static void RecordFields(Record& record, Self& self);

  bool IsDrawn() const;
  void CalcComplexAspectRatio(point3Dtype& scale) const;
  void TransformTextPlane(point3Dtype const& rotation) const;
  void calccharjust(point3Dtype& offset, double width, double height) const;
  void repostextstart3D(point3Dtype const& offset) const;

  COpenGL* m_context;         ///< not owned
  CTransform3D* m_transform;  ///< not owned
  CString m_string;
  CFont3D* m_font;             ///< not owned
  point3Dtype m_location;      ///< world coordinates
  point3Dtype m_normLocation;  ///< normalised coordinates
  int m_xJustify;              ///< 0 left, 1 centre, 2 right
  int m_yJustify;              ///< 0 bottom, 1 middle, 2 top
  RGBDType m_color;
  int m_textPlane;    ///< 0 x-y, 1 x-z, 2 y-z, 3 facing the viewer
  int m_rotation;     ///< degrees within the text plane
  int m_reserved;     ///< saved and loaded, otherwise not used
  int m_clipping;     ///< stored and saved only
  int m_textEnable;   ///< 0: not drawn
  int m_flipX;        ///< nonzero: half a turn about x
  int m_flipY;        ///< nonzero: half a turn about y
  double m_charSize;  ///< multiplies the font's size
  int m_transformID;  ///< id of the transform
  int m_classTag;     ///< 1515 marks a live object
};

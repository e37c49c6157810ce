/// @file
/// One entry of a legend.
#pragma once

#include <memory>

#include "orvalix/foundation/value_types.h"
#include "orvalix/host/host.h"

class COpenGL;
class CTextObj3D;
class CTransform3D;

/// A small solid symbol beside a line of text. A legend makes its entries
/// (CLegend3D::NewLegendObj()), places them at every drawing, and deletes them.
class ORVALIX_API CLegendObj3D {
 public:
  /// Defaults only; bound to nothing and not drawn.
  /// @throws CErr3D type 3, class 16, "InitLegendObjDefaults"
  CLegendObj3D();
  /// Defaults, then InitLegendObj().
  CLegendObj3D(COpenGL* context, CTransform3D* transform);
  /// The same with a text.
  CLegendObj3D(COpenGL* context, CTransform3D* transform, const CString& text);
  ~CLegendObj3D();
  CLegendObj3D(const CLegendObj3D&) = delete;
  CLegendObj3D& operator=(const CLegendObj3D&) = delete;

  /// Binds to a rendering context, whose current font the text takes, and to a transform; both stay
  /// the caller's and must outlive the entry.
  /// @throws CErr3D class 16, "InitLegendObj": type 16 for something that is no live context, type
  ///   15 for something that is no live transform; type 17, class 19, "InitTextObj" for a context
  ///   without a font
  void InitLegendObj(COpenGL* context, CTransform3D* transform);

  /// Draws the symbol, then the text.
  void DrawLegendObj();
  /// Draws the symbol at its position in the current matrix, unless the entry is disabled.
  void DrawLegendSymbol();
  /// Draws the text at its position, unless the entry is disabled.
  void DrawLegendText();

  /// @throws CErr3D type 2, class 19, "SetString"
  void SetText(const CString& text);
  CString GetText() const;
  /// Width of the text, in the sizes of the context's font; 0 while the entry isn't bound.
  double TextWidth() const;
  /// Height of the text, in the sizes of the context's font; 0 while the entry isn't bound.
  double TextHeight() const;
  /// Default black.
  void SetTextColor(const RGBDType& color);
  RGBDType GetTextColor() const;
  /// Default black.
  void SetSymbolColor(const RGBDType& color);
  RGBDType GetSymbolColor() const;
  /// The same as SetSymbolColor().
  void SetColor(const RGBDType& color);
  /// 1 a line, 2 a low cube, 3, 9 and 10 a cube, 8 a flat cube, 11 a plus, 12 a diamond, 13 a
  /// pyramid, 14 an hourglass, 15 an arrow; others, such as 0 (default), draw nothing.
  void SetSymbol(int symbol);
  int GetSymbol() const;
  /// Size of the symbol, in heights of the legend times 0.75. Default 0.1. Large symbols are
  /// flattened along the line of sight, as far as the view has room for them.
  void SetSymbolScale(double scale);
  double GetSymbolScale() const;
  /// Place of the text's lower left corner, in the legend's square from -1 to 1. The legend sets it
  /// at every drawing. Default (0, 0, 0).
  void SetTextPosition(const point3Dtype& position);
  /// Addition: the place as last set.
  point3Dtype GetTextPosition() const;
  /// Place of the symbol's centre, in the legend's square from -1 to 1. The legend sets it at every
  /// drawing. Default (0, 0, 0).
  void SetSymbolPosition(const point3Dtype& position);
  /// Addition: the place as last set.
  point3Dtype GetSymbolPosition() const;
  /// Addition: turns of solids above symbol 3 about x, y and z, in degrees. Default (-20, -20, 0).
  void SetSymbolRotation(const point3Dtype& degrees);
  point3Dtype GetSymbolRotation() const;
  /// 0 leaves the entry out; it then takes no room. Default 1.
  void EnableLegendObj(int flag);
  int GetLegendObjEnable() const;
  /// Addition: the text, owned by the entry.
  CTextObj3D* GetTextObj() const;
  /// Addition: id of the transform that the entry was bound to last. Default 0.
  int GetTransformID() const;
  /// Addition: 1313 in a live object.
  int GetClassTag() const;

  /// Writes the record to an open file. Null does nothing.
  /// @throws CErr3D type 7, "Save", class 16 or that of the text (19)
  void Save(void* file) const;
  /// Reads the record from an open file; the entry counter becomes the stored one. Null does
  /// nothing.
  /// @throws CErr3D type 7, "Load", class 16 or that of the text (19)
  void Load(void* file);

  static int nSelfID;  ///< entries counted so far; Load() overwrites it

 private:
  template <class Record, class Self>
  static void RecordFields(Record& record, Self& self);

  void InitLegendObjDefaults();
  void DrawSymbolSolid();

  COpenGL* m_context;         ///< not owned
  CTransform3D* m_transform;  ///< not owned
  RGBDType m_textColor;
  RGBDType m_symbolColor;
  int m_symbol;                  ///< see SetSymbol()
  double m_symbolScale;          ///< size of the symbol
  point3Dtype m_textPosition;    ///< in the legend's square
  point3Dtype m_symbolPosition;  ///< in the legend's square
  point3Dtype m_symbolRotation;  ///< degrees about x, y, z
  int m_enable;                  ///< 0: left out
  int m_transformID;             ///< id of the transform bound last
  int m_classTag;                ///< 1313 marks a live object
  std::unique_ptr<CTextObj3D> m_text;
};

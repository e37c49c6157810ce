/// @file
/// Legends: tables of symbols and texts.
#pragma once

#include <memory>
#include <vector>

#include "orvalix/foundation/object_list.h"
#include "orvalix/foundation/value_types.h"
#include "orvalix/host/host.h"
#include "orvalix/render/kept_drawing.h"

class CChartView3D;
class CLegendObj3D;
class COpenGL;
class CTextObj3D;
class CTransform3D;

/// Entries, each a small solid symbol beside a line of text, on a slab in a rectangle of the view,
/// with up to two titles above and a footer below them.
///
/// A view makes its legends (CChartView3D::NewLegend3D()), draws them after all charts, and deletes
/// them. Entries are numbered from 0 in the order in which they were made. The table fills the
/// columns of a row before the next row begins. Disabled entries take no cell; their texts count
/// for the width of a column all the same, and the first entry of all for the height of the rows.
class ORVALIX_API CLegend3D {
 public:
  /// Defaults only; bound to nothing and not drawn.
  /// @throws CErr3D type 3: class 15, "InitLegend", or that of a text
  CLegend3D();
  /// Defaults, then InitLegend().
  explicit CLegend3D(CChartView3D* view);
  /// Deletes the entries, the titles and the transform.
  ~CLegend3D();
  CLegend3D(const CLegend3D&) = delete;
  CLegend3D& operator=(const CLegend3D&) = delete;

  /// Binds to a view, which must outlive the legend, and makes the transform that the legend draws
  /// through. Of a view that isn't initialised, the legends that it has made itself
  /// (CChartView3D::NewLegend3D()) are bound when it is; others stay unbound.
  /// @throws CErr3D class 15, "InitLegend": type 13 for null, type 3 when memory runs out; type 17,
  ///   class 19, "InitTextObj" for a context without a font
  void InitLegend(CChartView3D* view);

  /// Draws the legend at its position, unless it is disabled or has no enabled entry. The context
  /// must be current; its viewport, colour mode, font scale factor and line style are changed.
  void DrawLegend();

  /// What DrawLegend() does when everything is in its place: draws the table in the viewport as
  /// last set, with the font height factor as last set.
  void DrawLegendTable();
  /// Makes the legend's viewport, font size and transform those of the context.
  void TransformLegend();

  /// @name Entries
  /// Belong to the legend; callers never delete them.
  /// @{

  /// Makes an entry at the end.
  /// @throws CErr3D type 3: class 15, "NewLegendObj", or that of an entry or text; type 17, class
  ///   19, "InitTextObj" for a context without a font
  CLegendObj3D* NewLegendObj();
  /// The same with a text. There is no new entry when its text can't be kept.
  CLegendObj3D* NewLegendObj(const CString& text);
  /// The same with a symbol (CLegendObj3D::SetSymbol()) and its colour.
  CLegendObj3D* NewLegendObj(const CString& text, int symbol, const RGBDType& color);
  /// Addition: number of entries and the one at `index`; null when there is none.
  int GetNumLegendObjs() const;
  CLegendObj3D* GetLegendObj(int index) const;
  /// Number of entries that are enabled.
  int GetNumberActiveLegends() const;
  /// Width of the widest text of all entries, enabled or not; 0 when there are none.
  double GetMaxLegendTextWidth() const;
  /// @}

  /// @name Entries by their number
  /// Each is the one of the same name in CLegendObj3D. Setting an entry that doesn't exist does
  /// nothing; asking for one gives an empty text, 0, or an all-zero colour.
  /// @{
  void SetText(int index, const CString& text);
  CString GetText(int index) const;
  void SetTextColor(int index, const RGBDType& color);
  RGBDType GetTextColor(int index) const;
  void SetSymbol(int index, int symbol);
  int GetSymbol(int index) const;
  void SetSymbolColor(int index, const RGBDType& color);
  RGBDType GetSymbolColor(int index) const;
  void SetSymbolScale(int index, double scale);
  double GetSymbolScale(int index) const;
  /// The same as SetSymbolColor().
  void SetColor(int index, const RGBDType& color);
  void EnableLegendObj(int index, int flag);
  int GetLegendObjEnable(int index) const;
  /// @}

  /// @name Contour legends
  /// Append an entry with a cube for each band or value, from the highest down; those made before
  /// memory runs out stay. They keep copies of the arrays; a null array leaves the copy of before,
  /// and there are as many entries as that has values. Without colours bands are black.
  /// @param values count heights, ascending
  /// @param colors count + 1 colours of the bands below, between and above the heights; the last
  ///   one is not shown
  /// @param count fewer than two make the entries for which there are values
  /// @param decimals digits after the point
  /// @param textColor, textColorFlag 1: texts have this colour; 0: that of their band
  /// @throws CErr3D class 15: type 2, "InitContourValueStorage" or "InitContourColorsStorage"; type
  ///   3, "NewLegendObj"
  /// @{

  /// Bands: above, between and below the values. Kept: the highest value is not shown.
  /// @param upperText, lowerText before the value of the highest and of the lowest band
  void ContourLegend(const double* values, const RGBDType* colors, int count, int decimals,
                     const RGBDType& textColor, int textColorFlag, const CString& upperText,
                     const CString& lowerText);
  /// Values alone.
  void ContourLegend2(const double* values, const RGBDType* colors, int count, int decimals,
                      const RGBDType& textColor, int textColorFlag);
  /// @}

  /// @name Titles
  /// Empty texts take no room.
  /// @{

  /// The first line.
  void SetTitle1(const CString& text);
  /// The line below.
  void SetTitle2(const CString& text);
  /// The line under the entries.
  void SetFooter(const CString& text);
  /// Addition: the first title, owned by the legend: its colour, size and so on can be set.
  CTextObj3D* GetTitle1Obj() const;
  /// Addition: the same for the second title.
  CTextObj3D* GetTitle2Obj() const;
  /// Addition: the same for the footer.
  CTextObj3D* GetFooterObj() const;
  /// @}

  /// @name Properties
  /// Take effect with the next drawing.
  /// @{

  /// The legend's rectangle in fractions of the view, from the bottom left corner. Default the
  /// whole view. Setting it also brings the viewport up to date.
  void SetLegendPosition(const GLViewRType& position);
  GLViewRType GetLegendPosition() const;
  /// The legend's rectangle in pixels of the view; every drawing recomputes it from the position.
  /// Null does nothing.
  void SetLegendViewport(const GLViewportType* viewport);
  /// Addition: the viewport as last set. Default all 0.
  GLViewportType GetLegendViewport() const;
  /// 0: symbols to the right of the texts (default); others: to the left.
  void SetLegendOrientation(int orientation);
  int GetLegendOrientation() const;
  /// Columns of the table, at least 1. Default 1.
  void SetLegendColumns(int columns);
  int GetLegendColumns() const;
  /// Rows of the table; every drawing recomputes them from the entries and columns.
  void SetLegendRows(int rows);
  int GetLegendRows() const;
  /// 0 leaves the legend out. Default 1.
  void EnableLegend(int flag);
  int GetLegendEnable() const;
  /// 0 leaves the frame on the slab out. Default 1.
  void EnableLegendBorder(int flag);
  int GetLegendBorderEnable() const;
  /// 0 flat colours (default), 1 lit, by the light of the chart that the view draws last: without a
  /// chart a lit legend is dark.
  void SetColorMode(int mode);
  /// Addition: the mode as last set.
  int GetColorMode() const;
  /// Factor on the aspect of texts. Default 1.
  void SetViewAspect(double aspect);
  /// Height factor of texts; every drawing sets it to 1 / the height of the position.
  void SetFontHeightSF(double factor);
  double GetFontHeightSF() const;
  /// Size of the texts. Default 0.1.
  void SetFontSize(double size);
  double GetFontSize() const;
  /// Width of the slab's outline in pixels. Default 2.
  void SetBorderThickness(double thickness);
  double GetBorderThickness() const;
  /// From a symbol to its text, in sizes of the symbol. Default 1.5.
  void SetSymbolTextSpace(double space);
  double GetSymbolTextSpace() const;
  /// Depth of the slab from -1 (far) to 1 (near). Default 0.7.
  void SetLegendYLoc(double y);
  double GetLegendYLoc() const;
  /// Fill of the slab. Default white.
  void SetLegendBkColor(const RGBDType& color);
  /// Addition: the colour as last set.
  RGBDType GetLegendBkColor() const;
  /// Default black.
  void SetLegendBorderColor(const RGBDType& color);
  RGBDType GetLegendBorderColor() const;
  /// Addition: id of the legend's transform. Default 0.
  int GetTransformID() const;
  /// Addition: 1313 in a live object.
  int GetClassTag() const;
  /// @}

  /// @name Record
  /// @{

  /// Writes the legend with its entries to an open file. Null does nothing.
  /// @throws CErr3D type 7, "Save", class 15 or that of an entry (16) or text (19)
  void Save(void* file) const;
  /// Reads a legend from an open file and adds the stored entries to its own. The legend counter
  /// becomes the stored one. Null does nothing.
  /// @throws CErr3D type 7, "Load", class 15 or that of an entry (16) or text (19)
  void Load(void* file);
  /// @}

  static int nSelfID;  ///< legends counted so far; Load() overwrites it

 private:
  friend class CChartView3D;  // binds its legends when it is initialised

  /// Where symbol and text of the next entry stand.
  struct Cell {
    double symbolX;
    double symbolZ;
    double textX;
    double textZ;
  };

  template <class Record, class Self>
  static void RecordFields(Record& record, Self& self);
  template <class Record, class Self>
  static void RecordLayout(Record& record, Self& self);
  template <class Record, class Self>
  static void RecordContours(Record& record, Self& self, int contours);

  void InitDefaults();
  void Bind();
  void Place();
  void DrawTable(int entries);
  void DrawSlab();
  void DrawEntries(Cell cell, int columns);
  void DrawTitle(CTextObj3D& text, double z);
  void StoreContours(const double* values, const RGBDType* colors, int count, int decimals,
                     const RGBDType& textColor, int textColorFlag);
  CLegendObj3D* AppendEntry(const CString* text);
  void AppendBand(const CString& text, std::size_t color);
  CString FormatValue(std::size_t index) const;

  COpenGL* m_context;     ///< not owned
  CChartView3D* m_view;   ///< not owned
  int m_orientation;      ///< 0: symbols right of the texts
  int m_contourDecimals;  ///< digits of contour values
  int m_colorMode;        ///< of the context while the legend draws
  int m_rows;             ///< of the last drawing
  int m_columns;
  int m_contourTextColorFlag;  ///< 1: contour entries have m_contourTextColor
  int m_enable;                ///< 0: not drawn
  int m_borderEnable;          ///< 0: no frame
  double m_viewAspect;         ///< factor on the aspect of texts
  double m_viewportAspect;     ///< height / width of the viewport
  double m_fontHeightSF;       ///< height factor of texts
  double m_fontSize;           ///< font scale factor while the legend draws
  double m_rowStep;            ///< between rows, of the last drawing
  double m_columnStep;         ///< between columns, of the last drawing
  double m_topMargin;          ///< from the top edge to the first row
  double m_leftMargin;         ///< from the left edge to the first column
  double m_borderThickness;    ///< pixels of the slab's outline
  double m_symbolTextSpace;    ///< symbol sizes
  double m_yLocation;          ///< depth of the slab
  RGBDType m_contourTextColor;
  RGBDType m_bkColor;
  RGBDType m_borderColor;
  GLViewRType m_position;     ///< fractions of the view
  GLViewportType m_viewport;  ///< pixels, from the position
  CString m_upperText;        ///< before the highest contour value
  CString m_lowerText;        ///< before the lowest contour value
  std::vector<double> m_contourValues;
  std::vector<RGBDType> m_contourColors;  ///< one more than values, once there are contours
  int m_transformID;                      ///< id of m_transform
  int m_classTag;                         ///< 1313 marks a live object
  std::unique_ptr<CTransform3D> m_transform;
  orvalix::ObjectList<CLegendObj3D> m_entries;
  std::unique_ptr<CTextObj3D> m_title1;
  std::unique_ptr<CTextObj3D> m_title2;
  std::unique_ptr<CTextObj3D> m_footer;
  orvalix::KeptDrawingSlot m_kept;  ///< what was drawn last
};

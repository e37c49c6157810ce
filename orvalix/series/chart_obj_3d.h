/// @file
/// One data series of a chart.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <vector>

#include "orvalix/foundation/value_types.h"
#include "orvalix/host/host.h"

class COpenGL;
class CTransform3D;

/// One plotted data set: its own copies of the caller's arrays, its attributes, and the chart type
/// that selects how it is drawn.
///
/// A chart makes its data series (CChart3D::NewChartObj()) and deletes them. A set-up routine, such
/// as BarChart25D(), copies the arrays, stores the attributes that the type uses and sets the chart
/// type; other attributes keep their values. Set up again, a series replaces the arrays that the
/// routine names and keeps the rest.
///
/// In the two-and-a-half-dimensional types ("25D") the independent values run along x (independent
/// axis 0) or y (1), each series stands in its own row along the other of the two, and the
/// dependent values run along z. All values are world coordinates of the transform.
///
/// Nothing is checked when it is stored; drawing leaves out what can't be drawn. Copying a series
/// copies its arrays.
class ORVALIX_API CChartObj3D {
 public:
  /// Chart type numbers.
  enum ChartTypes {
    kNoChart = 0,     ///< draws nothing, as does every number without a type
    kBarChart25D = 2  ///< set up by BarChart25D()
  };

  /// Defaults only; bound to nothing and not drawn.
  CChartObj3D();
  /// Defaults, then InitChartObj3D().
  CChartObj3D(COpenGL* context, CTransform3D* transform);

  /// Binds to a rendering context and a transform; both stay the caller's and must outlive the
  /// series.
  /// @throws CErr3D class 5, "InitChartObj3D": type 16 for something that is no live context, type
  ///   15 for something that is no live transform; the binding is then as it was
  void InitChartObj3D(COpenGL* context, CTransform3D* transform);

  /// Draws the series unless it is disabled or not bound. Afterwards clipping, polygon outlines and
  /// colouring by value are off.
  void DrawChartObj();

  /// @name Set-up
  /// @{

  /// A bar per point, standing on the base value.
  /// @param ind, dep n independent and dependent values; copied. Null leaves what was there.
  /// @param base value from which bars rise
  /// @param constant place of the series along the depth axis
  /// @param indWidth, constWidth width of a bar along the independent axis and its depth, in
  ///   working units
  /// @param indJustify, constJustify where a bar stands relative to its value: 0 starts there, 1
  ///   is centred, 2 ends there
  /// @param indAxis 0: the independent values run along x; 1: along y
  /// @throws CErr3D type 2, class 5, of the storage that could not be allocated
  void BarChart25D(const double* ind, const double* dep, double base, double constant, int n,
                   double indWidth, double constWidth, RGBDType const& fill,
                   RGBDType const& outline, int indJustify, int constJustify, int indAxis);
  /// @}

  /// @name Storages
  /// Each Init routine copies as many elements as the counts set before say (none for counts below
  /// 1) and replaces what was there; a null source changes nothing, except where noted. Each Delete
  /// routine frees a storage and leaves the counts.
  /// @throws CErr3D type 2, class 5, with the routine's name when memory runs out
  /// @{

  /// NumDataPnts elements.
  void InitIndDataStorage(const double* source);
  void DeleteIndDataStorage();
  /// NumDataPnts elements.
  void InitDepDataStorage(const double* source);
  void DeleteDepDataStorage();
  /// NumDataPnts elements.
  void InitDepData2Storage(const double* source);
  void DeleteDepData2Storage();
  /// NumDataPnts elements.
  void InitBarHeightsStorage(const double* source);
  void DeleteBarHeightsStorage();
  /// NumGroups times NumDataPnts elements: group g, point i at g * NumDataPnts + i.
  void InitGroupDataStorage(const double* source);
  void DeleteGroupDataStorage();
  /// NumGroups colours.
  void InitGroupColorsStorage(const RGBDType* source);
  void DeleteGroupColorsStorage();
  /// NumDataPnts colours; each segment then takes its own. Null: no segment does.
  void InitSegmentColorsStorage(const RGBDType* source);
  void DeleteSegmentColorsStorage();
  /// NumDataPnts points. Null sets NumDataPnts to 0.
  void Init3DPointStorage(const point3Dtype* source);
  void Delete3DPointStorage();
  /// NumContours values, in the storage of the independent values.
  void InitContourValueStorage(const double* source);
  void DeleteContourValueStorage();
  /// NumContours + 1 colours, in the storage of the segment colours.
  void InitContourColorsStorage(const RGBDType* source);
  void DeleteContourColorsStorage();
  /// NumDataPnts texts.
  void InitDataStringsStorage(const CString* source);
  void DeleteDataStringsStorage();

  /// Sets NumDataPnts and copies the arrays.
  /// Kept: `dep` is copied over the independent values, and the dependent values stay as they were.
  /// `dep2`, when not null, becomes both the second dependent values and the bar heights.
  void SetDataStorage25D(const double* ind, const double* dep, const double* dep2, int n);
  /// Sets both counts and copies the arrays.
  void SetGroupDataStorage(const double* ind, const double* group, int n, int numGroups,
                           const RGBDType* colors);
  /// Sets NumDataPnts and copies the points.
  void Set3DPointStorage(const point3Dtype* points, int n);
  /// Sets NumDataPnts and copies points and texts.
  void SetDataStringsStorage(const point3Dtype* points, const CString* texts, int n);
  /// InitBarHeightsStorage().
  void SetBarHeightsStorage(const double* heights);
  /// @}

  /// @name Elements
  /// Reading outside a storage gives 0 (or an all-zero record, or an empty text); writing there
  /// does nothing.
  /// @{
  double GetIndData(int i) const;
  void SetIndData(int i, double value);
  double GetDepData(int i) const;
  void SetDepData(int i, double value);
  /// The second argument is not used.
  double GetDepData2(int i, double unused) const;
  void SetDepData2(int i, double value);
  double GetBarHeight(int i) const;
  void SetBarHeight(int i, double value);
  double GetGroupData(int group, int point) const;
  void SetGroupData(int group, int point, double value);
  RGBDType GetGroupColor(int i) const;
  void SetGroupColor(int i, RGBDType const& color);
  RGBDType GetSegmentColor(int i) const;
  void SetSegmentColor(int i, RGBDType const& color);
  point3Dtype Get3DPoint(int i) const;
  void Set3DPoint(int i, point3Dtype const& point);
  CString GetScatterTextString(int i) const;
  void SetScatterTextString(int i, CString const& text);
  /// Kept: contours are read up to the number of points but written up to the number of contours.
  double GetContourValue(int i) const;
  void SetContourValue(int i, double value);
  RGBDType GetContourColor(int i) const;
  void SetContourColor(int i, RGBDType const& color);
  /// @}

  /// @name Attributes
  /// @{

  /// Value from which bars and areas rise. Default 0.
  void SetBaseValue(double value);
  double GetBaseValue() const;
  /// Place of the series along the depth axis, or of a plane. Default 0.
  void SetConstValue(double value);
  double GetConstValue() const;
  /// Extent of the series along the depth axis. Default 1.
  void SetConstWidth(double value);
  double GetConstWidth() const;
  /// Share of the working range left free between neighbours that have outlines. Default 0.0016.
  void SetFillGap(double value);
  double GetFillGap() const;
  /// Extent of a bar along the independent axis. Default 1.
  void SetIndWidth(double value);
  double GetIndWidth() const;
  /// Line width of outlines in pixels. Default 1.
  void SetOutlineWidth(double value);
  double GetOutlineWidth() const;
  /// Thickness of planes as a share of the working range. Default 0.02.
  void SetPlaneThickness(double value);
  double GetPlaneThickness() const;
  /// Size of symbols, texts or boxes. Default 1.
  void SetRelSize(double value);
  double GetRelSize() const;
  /// A ChartTypes number. Default 0.
  void SetChartType(int value);
  int GetChartType() const;
  /// Nonzero clips the series to the working scale. Default 0.
  void SetClipping(int value);
  int GetClipping() const;
  /// 0 flat colours, 1 lit, 2 coloured by value. Default 1.
  void SetColorMode(int value);
  int GetColorMode() const;
  /// Where the series stands relative to its const value: 0 starts there, 1 centred, 2 ends there.
  /// Default 0.
  void SetConstJustify(int value);
  int GetConstJustify() const;
  /// As SetConstJustify(), along the dependent axis. Default 0.
  void SetDepJustify(int value);
  /// Whether contours are to be labelled. Default 0.
  void SetContourLabelFlag(int value);
  int GetContourLabelFlag() const;
  /// 0: the bars of a group stand side by side (default); 1: one upon the other.
  void SetGroupType(int value);
  int GetGroupType() const;
  /// 0: the independent values run along x (default); 1: along y.
  void SetIndAxis(int value);
  int GetIndAxis() const;
  /// As SetConstJustify(), for bars and their independent values. Default 0.
  void SetIndJustify(int value);
  int GetIndJustify() const;
  /// Line style of lines. Default 0, solid.
  void SetLineStyle(int value);
  int GetLineStyle() const;
  /// Line width of lines in pixels. Default 1.
  void SetLineWidth(int value);
  int GetLineWidth() const;
  /// Contour values; there is a colour more than that. Default 0.
  void SetNumContours(int value);
  int GetNumContours() const;
  /// Elements of every storage that has one per point. Default 0.
  void SetNumDataPnts(int value);
  int GetNumDataPnts() const;
  /// Rows of group data, each with a colour of its own. Default 0.
  void SetNumGroups(int value);
  int GetNumGroups() const;
  /// Nonzero outlines polygons. Default 1.
  void SetOutlineMode(int value);
  int GetOutlineMode() const;
  /// Code of the plane (see planes.h) onto which points are projected; below 0 none. Default 0.
  void SetProjectionPlane(int value);
  int GetProjectionPlane() const;
  /// Nonzero: each segment takes its own colour. Default 0.
  void SetSegmentColorMode(int value);
  int GetSegmentColorMode() const;
  /// Number of the symbol that marks a point. Default 0.
  void SetSymbol(int value);
  int GetSymbol() const;
  /// Number of the second symbol of composite types. Default 0.
  void SetSymbol2(int value);
  int GetSymbol2() const;
  /// Plane in which texts stand: 0 x-y, 1 x-z (default), 2 y-z, 3 facing the viewer.
  void SetTextPlane(int value);
  int GetTextPlane() const;
  /// Default blue.
  void SetFillColor(RGBDType const& color);
  RGBDType GetFillColor() const;
  /// Default black.
  void SetOutlineColor(RGBDType const& color);
  RGBDType GetOutlineColor() const;
  /// Six flags that composite types consult. Default all 0. Null does nothing.
  void SetComboChartFlags(const int* flags);
  void GetComboChartFlags(int* flags) const;
  /// 0 leaves the series out of the picture. Default 1.
  void EnableChartObj(int flag);
  int GetChartObjEnable() const;
  /// Addition: id of the transform that the series was bound to last. Default 0.
  int GetOwnerID() const;
  /// Addition: 606 in a live object.
  int GetClassTag() const;
  /// @}

  /// @name Record
  /// @{

  /// Writes the series to an open file. Null does nothing. A series of values is saved with the
  /// points that it has independent and dependent (or group) values for, without either with none.
  /// @throws CErr3D type 7, class 5, "Save"
  void Save(void* file) const;
  /// Reads a series from an open file; the series counter becomes the stored one. Null does
  /// nothing.
  /// @throws CErr3D class 5, "Load": type 7, or type 2 when memory runs out
  void Load(void* file);
  /// @}

  static int nSelfID;  ///< series counted so far; Load() overwrites it

 private:
  template <class Record, class Self>
  static void RecordFields(Record& record, Self& self);
  template <class Record, class Self>
  static void RecordAttributes(Record& record, Self& self);
  template <class Record, class Self>
  static void RecordArrays(Record& record, Self& self);
  template <class Record, class Self>
  static void RecordScalarArrays(Record& record, Self& self, std::int64_t points);

  int PointsToSave() const;
  int GroupsToSave() const;
  void InitChartObjDefaults();
  void DrawChartType();
  void DrawBarChart25D();
  /// What to add to the start of something so wide: 0 for justification 0, minus half of the width
  /// for 1, minus the width for 2.
  double calcbgoffset(double width, int justify) const;
  /// Working units left free between outlined neighbours along the independent axis; 0 without
  /// outlines and for many points.
  double GetSmallGap() const;
  /// Makes the colour of segment i the fill colour when segments have colours of their own.
  void CheckSetSegmentColor(int i);
  bool FindGroupData(int group, int point, std::size_t& index) const;

  COpenGL* m_openGL;          ///< not owned
  CTransform3D* m_transform;  ///< not owned
  double m_constValue;        ///< place along the depth axis
  double m_baseValue;         ///< from which bars and areas rise
  double m_relSize;           ///< symbol, text or box size
  double m_constWidth;        ///< extent along the depth axis
  double m_indWidth;          ///< extent of a bar along the independent axis
  double m_fillGap;           ///< share of the working range between neighbours
  double m_outlineWidth;      ///< pixels
  double m_planeThickness;    ///< share of the working range
  RGBDType m_fillColor;       ///< of faces
  RGBDType m_outlineColor;    ///< of their edges
  RGBDType m_ohlcLineColor;   ///< lines of open-high-low-close charts
  int m_symbol;               ///< number of the symbol at points
  int m_symbol2;              ///< number of the second symbol
  int m_numDataPnts;          ///< elements of every storage per point
  int m_dep2Count;            ///< elements of m_depData2 when it was set
  int m_barHeightsCount;      ///< elements of m_barHeights when it was set
  int m_pointCount;           ///< elements of m_points when it was set; nonzero: a 3D type
  int m_groupColorsCount;     ///< elements of m_groupColors when it was set
  int m_segmentColorsCount;   ///< elements of m_segmentColors when it was set
  int m_stringsCount;         ///< elements of m_strings when it was set
  int m_polysurfaceFlag;      ///< 1: the series has a polysurface
  int m_numGroups;            ///< rows of m_groupData
  int m_lineWidth;            ///< pixels
  int m_lineStyle;            ///< 0 solid
  int m_indJustify;           ///< 0 start, 1 centre, 2 end
  int m_depJustify;           ///< same codes
  int m_constJustify;         ///< same codes
  int m_indAxis;              ///< of the independent values: 0 x, 1 y
  int m_projectionPlane;      ///< plane code
  int m_textPlane;            ///< plane of texts
  int m_groupType;            ///< 0 side by side, 1 stacked
  int m_chartType;            ///< one of ChartTypes
  int m_numContours;          ///< contour values in m_indData
  int m_colorMode;            ///< 0 flat, 1 lit, 2 coloured by value
  int m_contourLabelFlag;     ///< nonzero: contours are to be labelled
  int m_segmentColorMode;     ///< nonzero: each segment has its own colour
  int m_clipping;             ///< nonzero: clipped to the working scale
  int m_outlineMode;          ///< nonzero: polygons have outlines
  std::array<int, 6> m_comboChartFlags;   ///< parts of composite types
  int m_enable;                           ///< 0: not drawn
  std::vector<double> m_indData;          ///< independent values, or contour values
  std::vector<double> m_depData;          ///< dependent values
  std::vector<double> m_groupData;        ///< group by group
  std::vector<double> m_depData2;         ///< second dependent values
  std::vector<double> m_barHeights;       ///< of floating and 3D bars
  std::vector<point3Dtype> m_points;      ///< of the 3D types
  std::vector<RGBDType> m_groupColors;    ///< one per group
  std::vector<RGBDType> m_segmentColors;  ///< colours of segments, or of contours
  std::vector<CString> m_strings;         ///< texts at points
  int m_classTag;                         ///< 606 marks a live object
  int m_ownerID;                          ///< id of the transform bound last
};

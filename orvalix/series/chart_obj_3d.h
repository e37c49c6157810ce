/// @file
/// One data series of a chart.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <optional>
#include <span>
#include <vector>

#include "orvalix/foundation/value_types.h"
#include "orvalix/host/host.h"
#include "orvalix/render/kept_drawing.h"
#include "orvalix/surface/polysurface.h"

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
  /// Chart type numbers. Each type is set up by the routine of its name.
  enum ChartTypes {
    kNoChart = 0,  ///< draws nothing, as does every number without a type
    kRibbonChart25D = 1,
    kBarChart25D = 2,
    kBarChart3D = 3,
    kAreaFillChart25D = 4,
    kAreaRangeChart25D = 5,
    kLineChart25D = 6,
    kScatterChart3D = 7,
    kLineChart3D = 8,
    kProjectionLineChart3D = 9,
    kGroupBarChart25D = 10,
    kGroupRibbonChart25D = 11,
    kGroupAreaFillChart25D = 12,
    kOHLCChart25D = 13,
    kPlaneChart3D = 14,
    kScatterText3D = 15,
    kBoxAndWhiskerChart25D = 16,
    kFloatingBarChart25D = 17,
    kPlaneChart25D = 18,
    kPolysurfaceChart2D = 50,
    kPolysurfaceChart3D = 51,
    kContourPolysurface3D = 52
  };

  /// Symbols of scatter charts; other numbers draw no symbol.
  enum Symbols {
    kCube = 10,
    kPlus = 11,
    kDiamond = 12,
    kPyramid = 13,
    kHourglass = 14,
    kArrow = 15
  };

  /// Defaults only; bound to nothing and not drawn.
  CChartObj3D();
  /// Defaults, then InitChartObj3D().
  CChartObj3D(COpenGL* context, CTransform3D* transform);

  /// Copies a series with its arrays; the copy isn't counted.
  /// @throws CErr3D type 2: class 5, "operator=", or class 18, "CopyPolysurface"
  CChartObj3D(const CChartObj3D& source);
  /// The source is left without arrays.
  CChartObj3D(CChartObj3D&& source) noexcept;
  ~CChartObj3D();
  /// @throws CErr3D as the copy constructor; the series is then as it was
  CChartObj3D& operator=(const CChartObj3D& source);
  /// The source is left without arrays.
  CChartObj3D& operator=(CChartObj3D&& source) noexcept;

  /// Binds to a rendering context and a transform; both stay the caller's and must outlive the
  /// series.
  /// @throws CErr3D class 5, "InitChartObj3D": type 16 for something that is no live context, type
  ///   15 for something that is no live transform; the binding is then as it was
  void InitChartObj3D(COpenGL* context, CTransform3D* transform);

  /// Draws the series unless it is disabled or not bound. Afterwards clipping, polygon outlines and
  /// colouring by value are off, even when it throws.
  /// @throws CErr3D when memory runs out: type 2 or 3, class 5, the place "Draw" with the name of
  /// the
  ///   type, or that of a storage; type 2, class 7, "InitContour". Type 17, class 19, "InitTextObj"
  ///   for texts without a font in the context.
  void DrawChartObj();

  /// @name Set-up of two-and-a-half-dimensional types
  /// Common to all:
  /// - `ind` and `dep` are n independent and dependent values, `group` holds numGroups rows of n
  ///   values, row after row. Arrays are copied; null leaves what was there.
  /// - `constant` is the place of the series along the depth axis, `constWidth` its depth there,
  ///   `indWidth` the width of a bar along the independent axis, in world coordinates. Bars,
  ///   floating bars and the offsets of the justifications take the widths in working units as
  ///   they are, which on a linear axis is the same.
  /// - `indJustify` and `constJustify` say where a bar or series stands relative to its value: 0
  ///   starts there, 1 is centred, 2 ends there, anything else as 0.
  /// - `indAxis` 0: the independent values run along x; 1: along y.
  ///
  /// Drawing needs all arrays of the type, and draws as many points as the shortest one holds; only
  /// boxes do without group colours.
  /// @throws CErr3D type 2, class 5, of the storage that could not be allocated
  /// @{

  /// A strip between neighbouring points, as deep as the series: n - 1 pieces. Piece i has the
  /// segment colour i; colour 0 is not used.
  /// Kept: the far edge goes through the transform twice, which matters on a logarithmic depth
  /// axis. Along y the strip is lit from below.
  void RibbonChart25D(const double* ind, const double* dep, double constant, int n,
                      double constWidth, RGBDType const& fill, RGBDType const& outline,
                      int constJustify, int indAxis);
  /// A bar per point, standing on the base value.
  /// @param base value from which bars rise. It comes before `constant` here and after it in
  ///   GroupBarChart25D().
  void BarChart25D(const double* ind, const double* dep, double base, double constant, int n,
                   double indWidth, double constWidth, RGBDType const& fill,
                   RGBDType const& outline, int indJustify, int constJustify, int indAxis);
  /// Solids between the values and the base value. Where the values cross the base value the
  /// outline gets a point of its own.
  /// Kept: along y the solids are lit from inside.
  void AreaFillChart25D(const double* ind, const double* dep, double base, double constant, int n,
                        double constWidth, RGBDType const& fill, RGBDType const& outline,
                        int constJustify, int indAxis);
  /// Solids between the values of `dep` and those of `dep2`, whichever are higher: closed, lit from
  /// outside, and divided where the two rows cross. Piece i has the segment colour i.
  void AreaRangeChart25D(const double* ind, const double* dep, const double* dep2, double constant,
                         int n, double constWidth, RGBDType const& fill, RGBDType const& outline,
                         int constJustify, int indAxis);
  /// A line through the points. The line from point i - 1 to point i has the segment colour i, the
  /// last one that of the line before.
  /// @param lineStyle see COpenGL::SetLineStyle()
  /// @param lineWidth pixels; the fraction is cut off
  void LineChart25D(const double* ind, const double* dep, double constant, int n, int lineStyle,
                    double lineWidth, RGBDType const& color, int indAxis);
  /// Bars of several groups at each point, in the colours of the groups.
  /// @param base value on which the bars of group type 0 stand
  /// @param groupType 0: side by side, each group taking its share of the width; they stand on
  ///   the base value, as high as the value is large. 1: stacked from 0; a negative value hangs
  ///   from the sum before it. Others draw nothing.
  /// @param colors numGroups colours, copied
  void GroupBarChart25D(const double* ind, const double* group, double constant, double base, int n,
                        int numGroups, int groupType, double indWidth, double constWidth,
                        const RGBDType* colors, RGBDType const& outline, int indJustify,
                        int constJustify, int indAxis);
  /// Ribbons at the running sums of the groups, in the colours of the groups.
  /// @param colors numGroups colours, copied
  void GroupRibbonChart25D(const double* ind, const double* group, double constant, int n,
                           int numGroups, double constWidth, const RGBDType* colors,
                           RGBDType const& outline, int constJustify, int indAxis);
  /// Layers of solids, stacked from 0, in the colours of the groups: closed, lit from outside, and
  /// divided where the values of a group change their sign.
  /// @param colors numGroups colours, copied
  void GroupAreaFillChart25D(const double* ind, const double* group, double constant, int n,
                             int numGroups, double constWidth, const RGBDType* colors,
                             RGBDType const& outline, int constJustify, int indAxis);
  /// Open, high, low and close of a market, each a row of `group`: a line from high to low, small
  /// planes at both ends, symbols at open and close. A symbol number without a symbol (0) makes
  /// the tics that traders know, from the line towards smaller (open) and larger (close)
  /// independent values.
  /// @param symbol, symbol2 at open and at close, see Symbols
  /// @param size of symbols; planes and tics take a tenth of it as their share of the scale range
  /// @param lineWidth of lines and tics, pixels
  /// @param colors of open, high, low, close and the line: five colours, copied
  /// @param outline colour of symbols and planes
  /// @param constJustify, depJustify only stored
  /// @param flags five flags, nonzero draws: open, high, low, close, line. Null: all.
  void OHLCChart25D(const double* ind, const double* group, double constant, int n, int symbol,
                    int symbol2, double size, int lineWidth, const RGBDType* colors,
                    RGBDType const& outline, int constJustify, int depJustify, int indAxis,
                    const int* flags);
  /// Distributions: `group` has six rows, lower whisker end, lower box edge, dividing value, upper
  /// box edge, upper whisker end and value of the symbol. The parts are centred on their values.
  /// @param indWidth, constWidth of boxes and whisker ends, as those of bars and planes
  /// @param symbol, size of the symbol, see Symbols
  /// @param lineWidth of the whisker, pixels
  /// @param colors of lower end, lower box, upper box, upper end, whisker line and symbol: six
  ///   colours, copied
  /// @param constJustify, depJustify only stored
  /// @param symbolFlag nonzero draws symbols
  void BoxAndWhiskerChart25D(const double* ind, const double* group, double constant, int n,
                             double indWidth, double constWidth, int symbol, double size,
                             int lineWidth, const RGBDType* colors, RGBDType const& outline,
                             int constJustify, int depJustify, int indAxis, int symbolFlag);
  /// Bars that hang from their values: bar i reaches from dep - height up to dep.
  /// @param heights n heights, copied
  void FloatingBarChart25D(const double* ind, const double* dep, const double* heights,
                           double constant, int n, double indWidth, double constWidth,
                           RGBDType const& fill, RGBDType const& outline, int indJustify,
                           int constJustify, int indAxis);
  /// A slab per point that lies on its value, as thick as SetPlaneThickness() says.
  /// Kept: its widths go through the transform as if they were values.
  void PlaneChart25D(const double* ind, const double* dep, double constant, int n, double indWidth,
                     double constWidth, RGBDType const& fill, RGBDType const& outline,
                     int indJustify, int constJustify, int indAxis);
  /// @}

  /// @name Set-up of three-dimensional types
  /// Common to all: `points` are n points in world coordinates; they are copied, and null leaves
  /// the series without points. Planes are named by their codes, see planes.h.
  /// @throws CErr3D type 2, class 5, of the storage that could not be allocated
  /// @{

  /// A bar per point, from its height up or down to the point. The bar stands with its corner on
  /// the point. Segment colours are those of the points.
  /// @param heights n values from which the bars reach to their points; copied. Null leaves what
  ///   was there; without any, bars start at 0. Without points there are no heights either.
  /// @param indWidth, constWidth extents along x and y; kept: they go through the transform as if
  ///   they were values
  void BarChart3D(const point3Dtype* points, const double* heights, int n, double indWidth,
                  double constWidth, RGBDType const& fill, RGBDType const& outline);
  /// A symbol per point, and a line from the point straight to a plane. Segment colours are those
  /// of the points.
  /// @param size edge of a symbol, in tenths of the normalised units of which the view has two
  /// @param symbol see Symbols
  /// @param plane code of the plane to which the lines lead; below 0 and above 5 there are none
  /// @param constant where the plane stands: z of planes 0 and 3, y of 1 and 4, x of 2 and 5
  void ScatterChart3D(const point3Dtype* points, double size, int n, int symbol,
                      RGBDType const& fill, RGBDType const& outline, int plane, double constant);
  /// A line through the points. The line from point i - 1 to point i has the segment colour i, the
  /// last one that of the line before.
  void LineChart3D(const point3Dtype* points, int n, int lineStyle, int lineWidth,
                   RGBDType const& color);
  /// A line through the points as they lie on a plane: the coordinate across the plane is replaced
  /// by its place.
  /// @param unused has no effect
  /// @param plane code of the plane; the points stay where they are for other numbers
  /// @param constant where the plane stands: z of planes 0 and 3, y of 1 and 4, x of 2 and 5
  void ProjectionLineChart3D(const point3Dtype* points, double unused, int n, int lineStyle,
                             int lineWidth, RGBDType const& color, int plane, double constant);
  /// A slab per point that lies on it with its corner, as thick as SetPlaneThickness() says.
  /// @param indWidth, constWidth extents along x and y; kept: they go through the transform as if
  ///   they were values
  void PlaneChart3D(const point3Dtype* points, int n, double indWidth, double constWidth,
                    RGBDType const& fill, RGBDType const& outline);
  /// A text per point, centred on it, and a line from the point straight to a plane, in the current
  /// font of the context.
  /// @param texts n texts, copied
  /// @param size of the characters, as CTextObj3D::SetCharSize()
  /// @param textPlane see SetTextPlane()
  /// @param plane, constant as of ScatterChart3D()
  void ScatterText3D(const point3Dtype* points, const CString* texts, int n, double size,
                     int textPlane, RGBDType const& fill, int plane, double constant);
  /// A surface laid flat on a plane: its polygons, or with the wire frame flag of the mesh their
  /// edges, with one coordinate replaced by the place of the plane. Faces are black unless they
  /// are coloured by value (SetColorMode() 2).
  /// @param surface copied; null leaves what was there
  /// @param constant the coordinate that all points get
  /// @param plane 0: z is replaced; 1: y; 2: x; others change nothing
  /// @throws CErr3D also type 10, class 5, "InitPolysurfaceStorage" for what never was an open mesh
  void PolysurfaceChart2D(const CPolysurface* surface, double constant, int plane);
  /// A surface: its polygons in their first colour, with edges in their second one, or with the
  /// wire frame flag of the mesh the edges alone.
  /// @param surface copied; null leaves what was there
  /// @throws CErr3D also type 10, class 5, "InitPolysurfaceStorage" for what never was an open mesh
  void PolysurfaceChart3D(const CPolysurface* surface);
  /// The lines along which a surface has given heights, all laid on a horizontal plane.
  /// @param surface copied; null leaves what was there. Lines follow the mesh through the
  ///   neighbours of its polygons; without them they are drawn piece by piece.
  /// @param values numContours heights, copied
  /// @param colors numContours + 1 colours, copied; line k has colour k. Lines without one have
  /// that
  ///   of the outlines.
  /// @param constant height of the plane on which the lines lie
  /// @param labelFlag only stored
  /// @throws CErr3D also type 10, class 5, "InitPolysurfaceStorage" for what never was an open mesh
  void ContourPolysurface3D(const CPolysurface* surface, const double* values,
                            const RGBDType* colors, int numContours, double constant,
                            int labelFlag);
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
  /// NumContours + 1 colours, in the storage of the segment colours; none for counts below 0.
  void InitContourColorsStorage(const RGBDType* source);
  void DeleteContourColorsStorage();
  /// One mesh.
  /// @throws CErr3D also type 10, class 5, "InitPolysurfaceStorage" for what never was an open mesh
  void InitPolysurfaceStorage(const CPolysurface* source);
  void DeletePolysurfaceStorage();
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
  /// Sets NumContours and copies mesh, values and colours.
  void SetContourStorage(const CPolysurface* surface, const double* values, const RGBDType* colors,
                         int numContours);
  /// InitPolysurfaceStorage().
  void SetPolysurface(const CPolysurface* surface);
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

  /// Independent value of a point.
  double GetIndData(int i) const;
  void SetIndData(int i, double value);
  /// Dependent value of a point.
  double GetDepData(int i) const;
  void SetDepData(int i, double value);
  /// Second dependent value of a point. Reading doesn't use its second argument.
  double GetDepData2(int i, double unused) const;
  void SetDepData2(int i, double value);
  /// Where the bar of a point begins.
  double GetBarHeight(int i) const;
  void SetBarHeight(int i, double value);
  /// Value of a group at a point.
  double GetGroupData(int group, int point) const;
  void SetGroupData(int group, int point, double value);
  /// Colour of a group.
  RGBDType GetGroupColor(int i) const;
  void SetGroupColor(int i, RGBDType const& color);
  /// Colour of a point's segment.
  RGBDType GetSegmentColor(int i) const;
  void SetSegmentColor(int i, RGBDType const& color);
  /// A point in space.
  point3Dtype Get3DPoint(int i) const;
  void Set3DPoint(int i, point3Dtype const& point);
  /// Text of a point.
  CString GetScatterTextString(int i) const;
  void SetScatterTextString(int i, CString const& text);
  /// Value of a contour line.
  /// Kept: they are read up to the number of points but written up to the number of contours.
  double GetContourValue(int i) const;
  void SetContourValue(int i, double value);
  /// Colour of a contour line.
  /// Kept: they are read up to the number of points but written up to the number of contours.
  RGBDType GetContourColor(int i) const;
  void SetContourColor(int i, RGBDType const& color);
  /// A point of the mesh.
  point3Dtype GetPolysurfacePoint(int i) const;
  void SetPolysurfacePoint(int i, point3Dtype const& point);
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
  /// As SetConstJustify(), along the dependent axis; only stored. Default 0.
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
  /// Code of the plane (see planes.h) onto which points are projected; none below 0 and above 5.
  /// Default 0.
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
  /// points that it has independent and dependent (or group) values for, without either with none;
  /// a surface with the contours that it has values for. Kept: bar heights of three-dimensional
  /// bars aren't saved.
  /// @throws CErr3D "Save": type 7, or type 2 when memory runs out, class 5 or that of the mesh
  /// (18)
  void Save(void* file) const;
  /// Reads a series from an open file; the series counter becomes the stored one. Null does
  /// nothing.
  /// @throws CErr3D "Load": type 7, or type 2 when memory runs out, class 5 or that of the mesh
  /// (18)
  void Load(void* file);
  /// @}

  static int nSelfID;  ///< series counted so far; Load() overwrites it

 private:
  /// An array of the series. Copying it throws CErr3D type 2, class 5, "operator=" when memory runs
  /// out.
  template <class T>
  class StoredArray : public std::vector<T> {
   public:
    StoredArray() = default;
    StoredArray(const StoredArray& source);
    StoredArray(StoredArray&&) noexcept = default;
    StoredArray& operator=(const StoredArray&) = delete;
    StoredArray& operator=(StoredArray&&) noexcept = default;
    ~StoredArray() = default;
  };

  /// Every number that shapes what is drawn, apart from the data.
  std::vector<double> Shape() const;
  void DrawChartType();
  /// Draws as a part of another object, which is being drawn through the same transform.
  void DrawAsPart();

  template <class Record, class Self>
  static void RecordFields(Record& record, Self& self);
  template <class Record, class Self>
  static void RecordAttributes(Record& record, Self& self);
  template <class Record, class Self>
  static void RecordArrays(Record& record, Self& self);
  template <class Record, class Self>
  static void RecordScalarArrays(Record& record, Self& self, std::int64_t points);
  template <class Record, class Self>
  static void RecordSurface(Record& record, Self& self);

  int PointsToSave() const;
  int GroupsToSave() const;
  int ContoursToSave() const;
  void InitChartObjDefaults();
  void StoreSeries25D(const double* ind, const double* dep, int n, double constant,
                      int constJustify, int indAxis);
  void StorePlace25D(double constant, int constJustify, int indAxis);
  void StoreWidths(double indWidth, double constWidth);
  void StoreColors(RGBDType const& fill, RGBDType const& outline);
  void DrawRibbonChart25D();
  void DrawBarChart25D();
  void DrawBarChart3D();
  void DrawAreaFillChart25D();
  void DrawAreaRangeChart25D();
  void DrawLineChart25D();
  void DrawScatterChart3D();
  void DrawLineChart3D();
  void DrawProjectionLineChart3D();
  void DrawGroupBarChart25D();
  void DrawGroupRibbonChart25D();
  void DrawGroupAreaFillChart25D();
  void DrawOHLCChart25D();
  void DrawPlaneChart3D();
  void DrawScatterText3D();
  void DrawBoxAndWhiskerChart25D();
  void DrawFloatingBarChart25D();
  void DrawPlaneChart25D();
  void DrawPolysurfaceChart2D();
  void DrawPolysurfaceChart3D();
  void DrawContourPolysurface3D();
  /// What to add to the start of something so wide: 0 for justification 0, minus half of the width
  /// for 1, minus the width for 2.
  double calcbgoffset(double width, int justify) const;
  /// Working units left free between outlined neighbours along the independent axis; 0 without
  /// outlines and for many points.
  double GetSmallGap() const;
  /// Makes the colour of segment i the fill colour when segments have colours of their own.
  void CheckSetSegmentColor(int i);
  bool FindGroupData(int group, int point, std::size_t& index) const;

  /// Extents of a bar along x and y, working units.
  struct Footprint {
    double dx;
    double dy;
  };
  /// An end of a piece of an area.
  struct AreaEnd {
    double ind;
    double bottom;
    double top;
  };

  /// Points of which all storages of those sizes hold something.
  std::size_t PointsIn(std::initializer_list<std::size_t> sizes) const;
  /// The colour of segment i, or that of the series.
  const RGBDType& SegmentFill(std::size_t i) const;
  /// A point of the series: the independent axis decides which is x and which y.
  point3Dtype Place25D(double ind, double depth, double value) const;
  /// Kept: the widths as they are, as if they were working units.
  Footprint StoredFootprint() const;
  /// The prism of a bar at an independent value, moved by the justifications.
  void DrawPrismAt(double ind, double z, const Footprint& footprint, double dz,
                   RGBDType const& fill);
  /// World units left free along a linear independent axis.
  double AreaGap() const;
  /// From world to working coordinates.
  AreaEnd ToWorking(const AreaEnd& end) const;
  /// A piece of an area between ends in working coordinates.
  /// Corners in the order a near, a far, b far, b near: lit from outside when this turns as it does
  /// with a before b along x.
  void DrawAreaSolid(const AreaEnd& a, const AreaEnd& b, RGBDType const& fill);
  /// A piece of a layer between ends in working coordinates, divided where bottom and top cross.
  void DrawLayer(const AreaEnd& a, const AreaEnd& b, RGBDType const& fill);
  /// A piece between ends that don't cross, lit from outside.
  void DrawUpright(AreaEnd a, AreaEnd b, RGBDType const& fill);
  /// A line through `count` points in the style of the series.
  /// @param pointAt the i-th point in world coordinates
  template <class PointAt>
  void DrawLineThrough(std::size_t count, PointAt pointAt);

  /// Complete rows in the group data.
  std::size_t GroupsHeld() const;
  /// Row `group` of those that are held.
  std::span<const double> GroupRow(std::size_t group) const;
  /// The colour of a group, or that of the series.
  const RGBDType& GroupFill(std::size_t group) const;
  void DrawGroupBar(double ind, double width, double z, double dz, std::size_t group);
  /// A series on the same context and transform that looks like this one.
  CChartObj3D MakePart() const;
  /// Makes `part` symbols at the values of a row.
  void SetUpSymbols(CChartObj3D& part, std::size_t row, int symbol, std::size_t count,
                    const char* place) const;
  /// A line per point from one row to another, in the line style in force.
  void DrawUprightLines(std::span<const double> from, std::span<const double> to,
                        std::size_t count);
  /// A line per point from the value of a row along the independent axis.
  /// @param direction below 0: to smaller values; above: to larger ones
  void DrawTics(std::size_t row, double direction, std::size_t count);

  static bool IsSymbol(int symbol);
  /// The point with the coordinate across plane 0 to 5 replaced; as it is for other numbers.
  static point3Dtype ProjectOnto(int plane, double place, point3Dtype point);
  /// The line from a point to the projection plane, under the chart's matrix.
  void ProjectionLine(point3Dtype const& point, RGBDType const& color);
  void DrawSymbol(RGBDType const& fill);
  /// Each polygon of the surface in turn.
  /// @param drawPolygon gets its vertices (the first one again at their end), their number and its
  ///   two colours
  template <class DrawPolygon>
  void DrawPolygons(DrawPolygon drawPolygon);

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
  std::array<int, 6> m_comboChartFlags;       ///< parts of composite types
  int m_enable;                               ///< 0: not drawn
  StoredArray<double> m_indData;              ///< independent values, or contour values
  StoredArray<double> m_depData;              ///< dependent values
  StoredArray<double> m_groupData;            ///< group by group
  StoredArray<double> m_depData2;             ///< second dependent values
  StoredArray<double> m_barHeights;           ///< of floating and 3D bars
  StoredArray<point3Dtype> m_points;          ///< of the 3D types
  StoredArray<RGBDType> m_groupColors;        ///< one per group
  StoredArray<RGBDType> m_segmentColors;      ///< colours of segments, or of contours
  StoredArray<CString> m_strings;             ///< texts at points
  std::optional<CPolysurface> m_polysurface;  ///< of surfaces and contours
  orvalix::KeptDrawingSlot m_kept;            ///< what was drawn last
  int m_classTag;                             ///< 606 marks a live object
  int m_ownerID;                              ///< id of the transform bound last
};

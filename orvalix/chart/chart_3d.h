/// @file
/// One chart: a rectangle of the view with its titles, axes, data series, shapes, pictures and
/// texts.
#pragma once

#include <array>
#include <memory>

#include "orvalix/foundation/object_list.h"
#include "orvalix/foundation/value_types.h"
#include "orvalix/host/host.h"

class CAuxObj3D;
class CAxes3D;
class CChartObj3D;
class CChartView3D;
class CDIBObj3D;
class CHeader3D;
class COpenGL;
class CPolysurface;
class CTextObj3D;
class CTransform3D;

/// A chart inside a view. It clears and frames its rectangle, sets light and colouring by value up
/// for it, and draws its titles, then its axes frames, its data series, its shapes, its pictures
/// and its texts, each in the order in which they were made.
///
/// The view makes charts (CChartView3D::NewChart3D()) and deletes them. The chart makes and owns
/// its header, transforms, axes frames, data series, shapes, pictures and texts; callers never
/// delete them. Every child is drawn through one of the chart's transforms.
///
/// Properties are stored as they are given and take effect with the next drawing.
class ORVALIX_API CChart3D {
 public:
  /// Defaults only; belongs to no view and draws nothing.
  CChart3D();
  /// Binds to a view.
  /// @throws CErr3D as InitChart3D()
  explicit CChart3D(CChartView3D* view);
  /// Binds to a view and makes a transform for the world range from `min` to `max`, and an axes
  /// frame for the same range.
  /// @param transform when not null, receives the transform; the chart owns it
  /// @param axes when not null, receives the axes frame; the chart owns it
  /// @throws CErr3D as InitChart3D(), NewTransform() and NewAxes()
  CChart3D(CChartView3D* view, point3Dtype const& min, point3Dtype const& max,
           CTransform3D** transform = nullptr, CAxes3D** axes = nullptr);
  /// Deletes the children.
  ~CChart3D();
  CChart3D(const CChart3D&) = delete;
  CChart3D& operator=(const CChart3D&) = delete;

  /// Binds the chart, with its header and children, to a view, which must be initialised and must
  /// outlive the chart, and sets its context up for shaded drawing. That context is current
  /// afterwards. A picture whose file can't be had stays in the chart and draws nothing.
  /// @throws CErr3D type 12, class 4, "InitChart3D" for null or something that is no live view;
  ///   when memory runs out, CDIBObj3D::InitDIBObj()'s
  void InitChart3D(CChartView3D* view);

  /// @name Children
  /// @{

  /// Makes a transform for the world range from `min` to `max`.
  /// @throws CErr3D type 3, class 4, "NewTransform"; type 16, class 20 when the chart has no
  ///   context
  CTransform3D* NewTransform(point3Dtype const& min, point3Dtype const& max);
  /// Makes a transform with its defaults, bound to the chart's context if there is one.
  /// @throws CErr3D type 3, class 4, "NewTransform"
  CTransform3D* NewTransform();
  /// Makes a data series that is drawn through `transform`.
  /// @throws CErr3D class 4, "NewChartObj": type 15 for null or something that is no live
  ///   transform, type 3
  CChartObj3D* NewChartObj(CTransform3D* transform);
  /// Makes a data series that is bound to nothing yet and is not drawn.
  /// @throws CErr3D type 3, class 4, "NewChartObj"
  CChartObj3D* NewChartObj();
  /// Makes an axes frame for the range from `min` to `max`, drawn through `transform`. It draws
  /// nothing until its parts are switched on.
  /// @throws CErr3D class 4, "NewAxes": type 15 for null or something that is no live transform,
  ///   type 3
  CAxes3D* NewAxes(CTransform3D* transform, point3Dtype const& min, point3Dtype const& max);
  /// The same for the transform's whole scale.
  CAxes3D* NewAxes(CTransform3D* transform);
  /// The same for the range from `min` to `max`, drawn through the transform made last.
  CAxes3D* NewAxes(point3Dtype const& min, point3Dtype const& max);
  /// Makes an axes frame that is bound to nothing yet and is not drawn.
  /// @throws CErr3D class 4, "NewAxes": type 15 when the chart has no transform, type 3
  CAxes3D* NewAxes();
  /// Makes a text that is drawn through `transform` in the context's current font.
  /// @throws CErr3D class 4, "NewChartTextObj": type 15 for null or something that is no live
  ///   transform, type 3
  CTextObj3D* NewChartTextObj(CTransform3D* transform, CString const& text);
  /// The same, drawn through the chart's first transform.
  CTextObj3D* NewChartTextObj(CString const& text);
  /// Makes a text that is bound to nothing yet and is not drawn.
  /// @throws CErr3D type 3, class 4, "NewChartTextObj"
  CTextObj3D* NewChartTextObj();
  /// Makes a picture of a bitmap file that is drawn through `transform`.
  /// @throws CErr3D class 4, "NewDIBObj": type 15 for null or something that is no live transform,
  ///   type 3; CDIBObj3D::InitDIBObj()'s, for example type 5, class 8 for a missing file
  CDIBObj3D* NewDIBObj(CTransform3D* transform, CString const& fileName);
  /// The same, drawn through the chart's first transform.
  CDIBObj3D* NewDIBObj(CString const& fileName);
  /// Makes a picture without a file that is bound to nothing yet and is not drawn.
  /// @throws CErr3D type 3, class 4, "NewDIBObj"
  CDIBObj3D* NewDIBObj();
  /// Makes a shape that is drawn through `transform`.
  /// @param type one of CAuxObj3D::AuxObjTypes
  /// @throws CErr3D class 4: type 15, "NewAUXObj" for null or something that is no live transform;
  ///   type 3, "NewAuxObj"
  CAuxObj3D* NewAuxObj(CTransform3D* transform, int type);
  /// The same, drawn through the chart's first transform.
  CAuxObj3D* NewAuxObj(int type);
  /// Makes a shape without a type that is bound to nothing yet and is not drawn.
  /// @throws CErr3D type 3, class 4, "NewAuxObj"
  CAuxObj3D* NewAuxObj();
  /// The first transform with that id; null when there is none.
  CTransform3D* MatchTransformID(int id) const;
  /// @}

  /// @name Scales chosen by the data
  /// Data that aren't finite numbers are passed over; without any data the range is 0 to 10.
  /// `toMinorStep` nonzero rounds to minor steps, which fits closer; 0 to major ones.
  /// @{

  /// A transform for `count` points, rounded with RoundAxis().
  /// @throws CErr3D as NewTransform()
  CTransform3D* AutoTransform3D(const point3Dtype* points, int count, int toMinorStep);
  /// AutoTransform3D() for the points of a mesh; null has none.
  /// @throws CErr3D as NewTransform()
  CTransform3D* AutoTransformPolysurface(const CPolysurface* surface, int toMinorStep);
  /// A transform for a 2.5D series; see MinMaxValues25D().
  /// @throws CErr3D as NewTransform()
  CTransform3D* AutoTransform25D(const double* x, const double* y, int count, double depth,
                                 int orientation, int toMinorStep);
  /// A transform for several 2.5D series: the smallest range that holds all of theirs.
  /// Kept: the largest values start at 1e-100, so data below 0 alone have a range up to there.
  /// @param x, y, counts one array, and the length of both, for each of `seriesCount` series
  /// @throws CErr3D as NewTransform()
  CTransform3D* AutoTransformN25D(const double* const* x, const double* const* y, const int* counts,
                                  int seriesCount, double depth, int orientation, int toMinorStep);
  /// A transform for grouped series: `groupCount` groups of `count` values each, one after another,
  /// that start from `baseValue`.
  /// @param groupType 0: side by side, as AutoTransformN25D(); any other: stacked, the sums count
  /// @throws CErr3D as NewTransform(); type 2, class 4, "AutoTransformGroup25D"
  CTransform3D* AutoTransformGroup25D(const double* x, const double* groups, double baseValue,
                                      int count, int groupCount, double depth, int orientation,
                                      int groupType, int toMinorStep);
  /// An axes frame for a transform, with tics, labels and places chosen for reading: along the
  /// bottom edges at the larger y and x, and upright at the left.
  /// @throws CErr3D as NewAxes()
  CAxes3D* AutoAxes(CTransform3D* transform);
  /// The rounded range of a 2.5D series: of its `x` along x, of its `y` along z, and 0 to `depth`
  /// along y; with orientation 1, `x` along y and the depth along x.
  void MinMaxValues25D(const double* x, const double* y, int count, double depth, int orientation,
                       int toMinorStep, point3Dtype& min, point3Dtype& max) const;
  /// Widens a range outwards to round numbers; always, even where it starts out round. A range of
  /// no extent becomes 0 to twice its value, or 0 to 10, before that. Limits in the wrong order are
  /// exchanged; a range that isn't finite stays.
  void RoundAxis(double& min, double& max, int toMinorStep) const;
  /// Chooses the tics of an axis: a minor one every `ticSpacing`, a major one every `divisions`
  /// minor ones from `firstTic` on, and the `decimals` that their labels need. Limits may come in
  /// either order; a range of no extent is treated as by RoundAxis(). A range that isn't finite has
  /// a spacing of 0, which draws no tics.
  /// Kept: for ranges with a negative minimum that don't reach above 0, `firstTic` may lie outside.
  void CalcAxisTicMarks(double min, double max, double& firstTic, double& ticSpacing,
                        int& divisions, int& decimals) const;
  /// @}

  /// Clears the chart's rectangle and draws everything in it. The view calls this.
  void DrawChart();

  /// @name Properties
  /// @{

  /// 0 leaves the chart out of the picture. Default 1.
  void EnableChart(int flag);
  int GetChartEnable() const;
  /// 0 leaves the frame out. Default 1.
  void EnableBorder(int flag);
  int GetBorderEnable() const;
  /// Default black.
  void SetBorderColor(RGBDType const& color);
  RGBDType GetBorderColor() const;
  /// Line width of the frame in pixels. Default 1.
  void SetBorderThickness(double thickness);
  double GetBorderThickness() const;
  /// Default white; the alpha is not used.
  void SetChartBkColor(RGBDType const& color);
  RGBDType GetChartBkColor() const;
  /// The chart's rectangle in fractions of the view, from the bottom left corner. Default the whole
  /// view. Setting it also brings the viewport up to date.
  void SetChartPosition(GLViewRType const& position);
  void GetChartPosition(GLViewRType& position) const;
  /// Addition: magnifies the axes, series, shapes, pictures and texts within the chart's rectangle;
  /// titles and frame stay. Unlike a larger box (CTransform3D::SetChartRect()), what is magnified
  /// never comes so near that it is cut off. Factor 1 about (0, 0) is the default, and what is
  /// drawn for a factor that isn't positive and for numbers that aren't finite. Not saved in chart
  /// files.
  /// @param x, y what is drawn in the rectangle's middle: from -1, which is its left or bottom edge
  ///   at factor 1, to 1
  void SetZoom(double factor, double x, double y);
  void GetZoom(double& factor, double& x, double& y) const;
  /// The chart's rectangle in pixels of the view, rounded down; every drawing recomputes it from
  /// the position. Default (0, 0, 100, 100).
  void SetChartViewport(GLViewportType const& viewport);
  void GetChartViewport(GLViewportType& viewport) const;
  /// Direction that the light comes from, z up. Default (0, 1, 1): from the viewer's side and
  /// above.
  void SetLightPosition(point3Dtype const& position);
  void GetLightPosition(point3Dtype& position) const;
  /// Light colours: GL_DIFFUSE (0x1201, default white) or LIGHT3D_MODEL_AMBIENT (12345, default
  /// 0.4 grey). Any other key is ignored.
  void SetLightComponent(int key, RGBDType const& color);
  /// A light colour; all 0 for any other key.
  RGBDType GetLightComponent(int key) const;
  /// Size of the chart's texts. Default 0.1.
  void SetFontSize(double size);
  double GetFontSize() const;
  /// What colours a data series whose colour mode is 2: 0 x, 1 y, 2 z, 3 the value of each point.
  /// Default -1: none.
  void SetTextureMode(int mode);
  int GetTextureMode() const;
  /// Copies the colours from `min` to `max` for colouring by value: `min` falls on the first one.
  /// The last one ends at `max` when `min` is 0 or `count` a power of two; else it ends elsewhere,
  /// see COpenGL::SetTextureColorArray(). At most 258 are kept, of which the first 256 are used; 0
  /// leaves no colours. A negative count, or null, does nothing.
  void SetTextureColorArray(const RGBDType* colors, double min, double max, int count);
  /// Copies the colours and their range out; `colors` must have room for GetNumTextureColors().
  /// Null pointers are passed over.
  void GetTextureColorArray(RGBDType* colors, double* min, double* max) const;
  /// Number of colours that are kept.
  int GetNumTextureColors() const;
  /// Addition: number of transforms and the one at `index`, from 0 (null beyond the end).
  int GetNumTransforms() const;
  CTransform3D* GetTransform(int index) const;
  /// Addition: number of axes frames and the one at `index`, from 0 (null beyond the end).
  int GetNumAxes() const;
  CAxes3D* GetAxes(int index) const;
  /// Addition: number of texts and the one at `index`, from 0 (null beyond the end).
  int GetNumChartTextObjs() const;
  CTextObj3D* GetChartTextObj(int index) const;
  /// Addition: the titles and the footer, owned by the chart.
  CHeader3D* GetHeader() const;
  /// Addition: number of data series and the one at `index`, from 0 (null beyond the end).
  int GetNumChartObjs() const;
  CChartObj3D* GetChartObj(int index) const;
  /// Addition: number of shapes and the one at `index`, from 0 (null beyond the end).
  int GetNumAuxObjs() const;
  CAuxObj3D* GetAuxObj(int index) const;
  /// Addition: number of pictures and the one at `index`, from 0 (null beyond the end).
  int GetNumDIBObjs() const;
  CDIBObj3D* GetDIBObj(int index) const;
  /// Addition: 505 in a live object.
  int GetClassTag() const;
  /// @}

  /// @name Record
  /// @{

  /// Writes the chart with its children to an open file. Null does nothing.
  /// @throws CErr3D type 7, "Save", of the class whose record failed
  void Save(void* file) const;
  /// Reads a chart from an open file and adds the stored children to its own. The chart counter
  /// becomes the stored one. A picture whose file can't be had stays in the chart with the file's
  /// name and draws nothing. Null does nothing.
  /// @throws CErr3D type 7, "Load", of the class whose record failed
  void Load(void* file);
  /// @}

  static int nSelfID;  ///< charts counted so far; Load() overwrites it

 private:
  friend class CChartView3D;

  template <class Record, class Self>
  static void RecordFields(Record& record, Self& self);

  void InitChartDefaults();
  CAxes3D* AppendUnboundAxes();
  void BindChildren();
  void BindAxes(CAxes3D& axes);
  void BindAuxObj(CAuxObj3D& auxObj);
  void BindChartObj(CChartObj3D& chartObj);
  void BindDIBObj(CDIBObj3D& dibObj);
  void BindText(CTextObj3D& text);
  /// True when its frame covers all of that view and its border leaves the colours and the line
  /// width behind that the view's would have left.
  bool HidesBorderOf(const CChartView3D& view) const;
  void SetupOpenGL();
  void SetupLight();
  void SetupTexture();
  void SetFontFactors();
  void DrawBorder();
  void DrawHeader();
  void DrawAxes();
  void DrawChartObjs();
  void DrawAuxObjs();
  void DrawDIBObjs();
  void DrawChartTexts();

  COpenGL* m_openGL;          ///< the view's context; not owned
  CChartView3D* m_view;       ///< not owned
  double m_viewAspectFactor;  ///< multiplies the chart aspect for texts
  double m_chartAspect;       ///< viewport height / width
  double m_fontHeightSF;      ///< size factor of texts
  double m_fontSize;          ///< font scale factor while this chart draws
  double m_spareScale;        ///< stored and persisted only
  double m_borderThickness;   ///< pixels
  int m_chartEnable;
  int m_borderEnable;
  GLViewportType m_viewport;  ///< pixels of the view
  GLViewRType m_position;     ///< fractions of the view
  double m_zoomFactor;        ///< magnification of what stands in the rectangle
  double m_zoomX;             ///< what is magnified towards the middle, -1 to 1
  double m_zoomY;
  point3Dtype m_lightPosition;
  RGBDType m_chartBkColor;
  RGBDType m_borderColor;
  std::array<RGBDType, 258> m_textureColors;
  RGBDType m_diffuseLight;
  RGBDType m_ambientLight;
  double m_textureMinimum;
  double m_textureMaximum;
  int m_textureMode;       ///< negative: no colouring by value
  int m_numTextureColors;  ///< colours set in m_textureColors
  int m_classTag;          ///< 505 marks a live object
  std::unique_ptr<CHeader3D> m_header;
  orvalix::ObjectList<CTransform3D> m_transforms;
  orvalix::ObjectList<CAxes3D> m_axes;
  orvalix::ObjectList<CTextObj3D> m_chartTexts;
  orvalix::ObjectList<CChartObj3D> m_chartObjs;
  orvalix::ObjectList<CAuxObj3D> m_auxObjs;
  orvalix::ObjectList<CDIBObj3D> m_dibObjs;
};

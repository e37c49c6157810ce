/// @file
/// One chart: a rectangle of the view with its transforms and data series.
#pragma once

#include <array>

#include "orvalix/foundation/object_list.h"
#include "orvalix/foundation/value_types.h"
#include "orvalix/host/host.h"

class CChartObj3D;
class CChartView3D;
class COpenGL;
class CTransform3D;

/// A chart inside a view. It clears and frames its rectangle, sets light and colouring by value up
/// for it, and draws its data series in the order in which they were made.
///
/// The view makes charts (CChartView3D::NewChart3D()) and deletes them. The chart makes and owns
/// its transforms and data series; callers never delete them. Every child is drawn through one of
/// the chart's transforms.
///
/// Properties are stored as they are given and take effect with the next drawing.
class ORVALIX_API CChart3D {
 public:
  /// Defaults only; belongs to no view and draws nothing.
  CChart3D();
  /// Binds to a view.
  /// @throws CErr3D as InitChart3D()
  explicit CChart3D(CChartView3D* view);
  /// Binds to a view and makes a transform for the world range from `min` to `max`.
  /// @param transform when not null, receives the transform; the chart owns it
  /// @throws CErr3D as InitChart3D() and NewTransform()
  CChart3D(CChartView3D* view, point3Dtype const& min, point3Dtype const& max,
           CTransform3D** transform = nullptr);
  /// Deletes the children.
  ~CChart3D();
  CChart3D(const CChart3D&) = delete;
  CChart3D& operator=(const CChart3D&) = delete;

  /// Sets every property to its default and counts the chart.
  void InitChartDefaults();
  /// Binds to a view, which must be initialised and must outlive the chart, and sets its context up
  /// for shaded drawing. That context is current afterwards.
  /// @throws CErr3D type 12, class 4, "InitChart3D" for null or something that is no live view
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
  /// The first transform with that id; null when there is none.
  CTransform3D* MatchTransformID(int id) const;
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
  /// Copies the colours from `min` to `max` for colouring by value. At most 258 are kept, of which
  /// the first 256 are used; a count below 1 or null does nothing.
  void SetTextureColorArray(const RGBDType* colors, double min, double max, int count);
  /// Copies the colours and their range out; `colors` must have room for GetNumTextureColors().
  /// Null pointers are passed over.
  void GetTextureColorArray(RGBDType* colors, double* min, double* max) const;
  int GetNumTextureColors() const;
  /// Addition: number of transforms and the one at `index`, from 0 (null beyond the end).
  int GetNumTransforms() const;
  CTransform3D* GetTransform(int index) const;
  /// Addition: number of data series and the one at `index`, from 0 (null beyond the end).
  int GetNumChartObjs() const;
  CChartObj3D* GetChartObj(int index) const;
  /// Addition: 505 in a live object.
  int GetClassTag() const;
  /// @}

  /// @name Record
  /// @{

  /// Writes the chart with its children to an open file. Null does nothing.
  /// @throws CErr3D type 7, "Save", of the class whose record failed
  void Save(void* file) const;
  /// Reads a chart from an open file and adds the stored children to its own. The chart counter
  /// becomes the stored one. Null does nothing.
  /// @throws CErr3D type 7, "Load", of the class whose record failed
  void Load(void* file);
  /// @}

  static int nSelfID;  ///< charts counted so far; Load() overwrites it

 private:
  template <class Record, class Self>
  static void RecordFields(Record& record, Self& self);

  void SetupOpenGL();
  void SetupLight();
  void SetupTexture();
  void SetFontFactors();
  void DrawBorder();
  void DrawChartObjs();

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
  orvalix::ObjectList<CTransform3D> m_transforms;
  orvalix::ObjectList<CChartObj3D> m_chartObjs;
};

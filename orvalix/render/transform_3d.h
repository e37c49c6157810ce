/// @file
/// The mapping from a chart's own units to the box in which it is drawn.
#pragma once

#include <array>
#include <vector>

#include "orvalix/foundation/value_types.h"
#include "orvalix/host/host.h"

class COpenGL;

/// Maps world coordinates to the normalised box of a chart and sets the model-view matrix that
/// places and turns that box in the view.
///
/// - World space: the caller's values; the scale limits are given in it.
/// - Working space: world space with each logarithmic axis replaced by its base-10 logarithm
///   (log10Ex()). Geometry is sent to OpenGL in working coordinates.
/// - Normalised space: for each axis the working minimum lies at minus the chart rect and the
///   working maximum at plus the chart rect.
///
/// After the fixed turn of -90 degrees about x, world z points up the screen, and a larger world y
/// is nearer to the viewer.
///
/// A range of 0 gives infinite or undefined numbers in the matrix and the conversions; nothing is
/// reported, and nothing is drawn through such a matrix. A transform owns nothing.
class ORVALIX_API CTransform3D {
 public:
  /// Defaults only; bound to no context.
  CTransform3D();
  /// Binds to `context` (not owned) with the scale -1 to 1 on each axis.
  /// @throws CErr3D as InitTransform()
  explicit CTransform3D(COpenGL* context);
  /// Binds to `context` (not owned) with that scale.
  /// @throws CErr3D as InitTransform()
  CTransform3D(COpenGL* context, point3Dtype const& min, point3Dtype const& max);

  /// Sets every field to its default and takes a new id.
  void SetTransformDefaults();
  /// Binds to a rendering context, which must outlive the transform's use.
  /// @throws CErr3D type 16, class 20, "InitTransform" for null or something that is no live
  ///   context; the transform is then bound to none
  void InitTransform(COpenGL* context);

  /// @name Scale, in world coordinates
  /// @{

  /// No validation: a minimum above the maximum inverts the axis. Default 0 to 1.
  void SetScale(point3Dtype const& min, point3Dtype const& max);
  void GetScale(point3Dtype& min, point3Dtype& max) const;
  /// The minimum alone.
  void SetScaleMin(point3Dtype const& min);
  point3Dtype GetScaleMin() const;
  /// The maximum alone.
  void SetScaleMax(point3Dtype const& max);
  point3Dtype GetScaleMax() const;
  /// Copies the scale into the adjusted scale and makes the limits of logarithmic axes legal ones
  /// (AntilogLog10Ex()): 0 and below become 1.
  void SetAdjustedScale();
  /// The adjusted minimum, brought up to date first.
  point3Dtype GetAdjustedScaleMin();
  /// The adjusted maximum, brought up to date first.
  point3Dtype GetAdjustedScaleMax();
  /// The working scale as ChartTransform() last computed it.
  void GetWorkingScale(point3Dtype& min, point3Dtype& max) const;
  /// Maximum minus minimum of the scale; v is 0.
  point3Dtype GetRange() const;
  /// Maximum minus minimum of the working scale; v is 0.
  point3Dtype GetWorkingRange() const;
  /// GetRange() of axis 0, 1 or 2; 0 for any other.
  double GetAxisRange(int axis) const;
  /// GetWorkingRange() of axis 0, 1 or 2; 0 for any other.
  double GetAxisWorkingRange(int axis) const;
  /// 1 when the working minimum of axis `axis` mod 3 lies above its maximum, else 0.
  int IsScaleInverted(int axis) const;
  /// Mode of axis 0 to 2: 0 linear (default), anything else logarithmic. Entries 3 to 5 are only
  /// stored; other numbers are ignored.
  void SetAxisScaleMode(int axis, int mode);
  /// The mode entry at 0 to 5; 0 for other numbers.
  int GetAxisScaleMode(int axis) const;
  /// @}

  /// @name Placement
  /// @{

  /// Half extent of the normalised box per axis. Default 0.5; the view spans -1 to 1.
  void SetChartRect(point3Dtype const& rect);
  point3Dtype GetChartRect() const;
  /// Translation of the box in the turned frame, in normalised units. Default 0.
  void SetOffset(point3Dtype const& offset);
  point3Dtype GetOffset() const;
  /// Rotation about x, y and z in degrees. Default 0. Its v is kept as it was.
  void SetRotate(point3Dtype const& degrees);
  /// The rotation in degrees.
  point3Dtype GetRotation() const;
  /// Centre of the working scale; the next ChartTransform() overwrites it.
  void SetCentroid(point3Dtype const& centroid);
  point3Dtype GetCentroid() const;
  /// Addition: 2 / (working maximum - minimum) per axis, as ChartTransform() last computed it.
  point3Dtype GetNormalizationFactors() const;
  /// Nonzero clips everything drawn from now on to the working scale; 0 stops that. Clip planes are
  /// fixed in the coordinates current now, so call it after ChartTransform(). Default 0.
  void SetClipping(int flag);
  int GetClipping() const;
  /// @}

  /// @name Text
  /// @{

  /// Width-to-height factor of 3D text. Default 1.
  void SetFontAspect(double aspect);
  double GetFontAspect() const;
  /// Size factor of 3D text. Default 1.
  void SetFontHeightSF(double factor);
  double GetFontHeightSF() const;
  /// @}

  /// @name Conversions
  /// @{

  /// To working space on axis `axis` mod 3.
  double CVTWS(int axis, double value) const;
  /// From working space on axis `axis` mod 3.
  double CVFWS(int axis, double value) const;
  /// A copy of the point in working space; v is copied.
  point3Dtype CPTWS(point3Dtype const& point) const;
  /// `out` = `in` from working space; the v of `out` is left as it was.
  void CPFWS(point3Dtype& out, point3Dtype const& in) const;
  /// Takes n points to working space in place; null or n below 1 does nothing.
  void C3DATWS(point3Dtype* points, int n) const;
  /// A legal limit for axis entry `axis` (not reduced mod 3): AntilogLog10Ex() when its mode is
  /// nonzero, else the value itself.
  double LogLimits(int axis, double value) const;
  /// From world to normalised coordinates, through the working scale; v is copied.
  void NormalizePoint(point3Dtype const& in, point3Dtype& out) const;
  /// From normalised to world coordinates; v is copied. Kept: it interpolates between the raw
  /// scale limits and only then leaves working space, so it undoes NormalizePoint() on linear axes
  /// only.
  void UnNormalizePoint(point3Dtype const& in, point3Dtype& out) const;
  /// @}

  /// @name Matrices
  /// Each needs a context, which must be current; without one nothing happens.
  /// @{

  /// Brings scale, centroid and the graph transform up to date and loads it: geometry in working
  /// coordinates can be drawn.
  void ChartTransform();
  /// Loads the rotation alone: text and shapes turn with the chart but aren't distorted by its
  /// scales.
  void TextTransform();
  /// The three steps below, multiplied onto the current matrix.
  void TransformAll();
  /// The rotation, multiplied onto the current matrix.
  void TransformRotate();
  /// The scaling, multiplied onto the current matrix.
  void TransformScale();
  /// The translation, multiplied onto the current matrix.
  void TransformTranslate();
  /// Addition: appends every number by which the transform shapes what is drawn through it, and
  /// which of all transforms it is. Turning and moving change none of them.
  void AppendShape(std::vector<double>& numbers) const;
  /// The 16 values, column by column, that ChartTransform() captured. They belong to this object.
  double* GetGraphTransform();
  /// The 16 values, column by column, that TextTransform() captured. They belong to this object.
  double* GetFontTransform();
  /// @}

  /// @name Record
  /// @{

  /// Writes the 660 bytes of the record to an open file. Null does nothing.
  /// @throws CErr3D type 7, class 20, "Save"
  void Save(void* file) const;
  /// Reads the record from an open file; the id becomes the stored one, the counter stays. Null
  /// does nothing.
  /// @throws CErr3D type 7, class 20, "Load"
  void Load(void* file);
  /// @}

  /// Addition: the id by which saved children find their transform. Each construction takes the
  /// next one, from 1.
  int GetTransformID() const;
  /// Addition: 1616 in a live object.
  int GetClassTag() const;

  static int nSelfID;  ///< the id taken last, 0 at first

 private:
  template <class Record, class Self>
  static void RecordFields(Record& record, Self& self);

  void CalcWorkingScale(point3Dtype const& min, point3Dtype const& max);
  void MakeGraphTransformCurrent();
  void MakeTextTransformCurrent();

  COpenGL* m_context;                       ///< receives the matrices; not owned
  std::array<double, 16> m_graphTransform;  ///< the model-view matrix of ChartTransform()
  std::array<double, 16> m_fontTransform;   ///< the model-view matrix of TextTransform()
  point3Dtype m_centroid;                   ///< centre of the working scale
  point3Dtype m_offset;                     ///< translation in the turned frame
  point3Dtype m_rotation;                   ///< degrees about x, y, z
  point3Dtype m_normalizationFactors;       ///< 2 / working range per axis
  point3Dtype m_chartRect;                  ///< half extent of the normalised box per axis
  point3Dtype m_scaleMin;                   ///< world minimum per axis
  point3Dtype m_scaleMax;                   ///< world maximum per axis
  point3Dtype m_adjustedScaleMin;           ///< scale minimum, legal on logarithmic axes
  point3Dtype m_adjustedScaleMax;           ///< scale maximum, legal on logarithmic axes
  point3Dtype m_workingScaleMin;            ///< adjusted minimum in working space
  point3Dtype m_workingScaleMax;            ///< adjusted maximum in working space
  int m_clipping;                           ///< nonzero: clip to the working scale
  std::array<int, 6> m_axisScaleModes;      ///< 0 linear, else logarithmic; 3 to 5 only stored
  int m_reserved;                           ///< saved and loaded, otherwise not used
  double m_fontAspect;                      ///< width-to-height factor of text
  double m_fontHeightSF;                    ///< size factor of text
  int m_classTag;                           ///< 1616 marks a live object
  int m_id;                                 ///< see GetTransformID()
};

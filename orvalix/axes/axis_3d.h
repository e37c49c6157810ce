/// @file
/// One axis of a chart: its line and its tics.
#pragma once

#include <vector>

#include "orvalix/foundation/value_types.h"
#include "orvalix/host/host.h"

class COpenGL;
class CTransform3D;

/// The line along one world axis, placed by two intercepts on the other two axes, with major and
/// minor tics, linear or logarithmic as the transform says. An axes frame (CAxes3D) owns three.
///
/// Nothing is drawn before limits were set and the axis was bound to a context and a transform.
/// Lengths of tics are fractions of the working range of the axis along which they point.
class ORVALIX_API CAxis3D {
 public:
  /// Defaults only.
  CAxis3D();
  /// Defaults, then InitAxis() of the x axis.
  /// @throws CErr3D as InitAxis()
  CAxis3D(COpenGL* context, CTransform3D* transform);
  /// Defaults, then InitAxis().
  CAxis3D(COpenGL* context, CTransform3D* transform, int axis);
  /// Defaults, InitAxis(), then SetAxisLimits().
  CAxis3D(COpenGL* context, CTransform3D* transform, int axis, double start, double stop);

  /// Sets every property to its default and counts the axis.
  void InitAxisDefaults();
  /// Binds the axis; neither object is owned, and both must outlive the axis's use.
  /// @param axis 0 x, 1 y, 2 z; others act as the nearest
  /// @throws CErr3D class 2, "InitAxis": type 16 or 15 for a context or a transform that is null or
  ///   no live one; the axis is then bound to nothing
  void InitAxis(COpenGL* context, CTransform3D* transform, int axis);

  /// @name Limits, in world coordinates
  /// @{

  /// From where to where the axis runs, in either order. Default 0 to 10, which draws nothing until
  /// limits are set.
  void SetAxisLimits(double start, double stop);
  /// Moves the start. Below or above the present limits it widens them: the smaller of `value` and
  /// the maximum becomes the minimum, the larger the maximum.
  void SetAxisMin(double value);
  /// Moves the stop. The smaller of `value` and the minimum becomes the minimum; the maximum
  /// becomes `value`, but not less than the minimum was.
  void SetAxisMax(double value);
  /// The smaller limit.
  double GetAxisMin() const;
  /// The larger limit.
  double GetAxisMax() const;
  /// The first limit as it was given.
  double GetAxisStart() const;
  /// The second limit as it was given.
  double GetAxisStop() const;
  /// Maximum minus minimum.
  double GetAxisRange() const;
  /// 1 when the axis was given with its larger limit first, else 0.
  int GetAxisDir() const;
  /// 1 once limits were set.
  int IsAxisSet() const;
  /// Mode of the transform's axis: 0 linear, otherwise logarithmic; 0 without a transform.
  int GetAxisScaleMode() const;
  /// @}

  /// @name Tics
  /// @{

  /// Sets the six properties below at once.
  void SetAxisTics(double centerPoint, double ticSpace, int nthTicMajor, double minorTicLength,
                   double majorTicLength, int ticDir);
  /// The value from which tics are counted, a major one. Further outside of the limits than a step
  /// there are no tics. Default 0.
  void SetAxisCenterPoint(double value);
  double GetAxisCenterPoint() const;
  /// Distance between tics in axis units; without effect on logarithmic axes. 0, and what is no
  /// number, draws no tics. Default 1.
  void SetAxisTicSpace(double space);
  double GetAxisTicSpace() const;
  /// Every n-th tic from the centre is a major one; 0 makes all of them minor. Default 5.
  void SetAxisNthTicMajor(int n);
  int GetAxisNthTicMajor() const;
  /// Default 0.5.
  void SetAxisMinorTicLength(double length);
  double GetAxisMinorTicLength() const;
  /// Default 1.
  void SetAxisMajorTicLength(double length);
  double GetAxisMajorTicLength() const;
  /// Direction in which tics point: 0 -x, 1 -y, 2 -z, 3 +x, 4 +y, 5 +z; others act as the nearest.
  /// Default 0.
  void SetAxisTicDir(int direction);
  int GetAxisTicDir() const;
  /// @}

  /// @name Look
  /// @{

  /// Sets the four properties below at once.
  void SetAxisAttrib(RGBDType const& axisColor, RGBDType const& ticColor, double thickness,
                     int style);
  /// Default black.
  void SetAxisColor(RGBDType const& color);
  RGBDType GetAxisColor() const;
  /// Default black.
  void SetAxisTicColor(RGBDType const& color);
  RGBDType GetAxisTicColor() const;
  /// Pixels, of line and tics. Default 1.
  void SetAxisThickness(double thickness);
  double GetAxisThickness() const;
  /// COpenGL::SetLineStyle() of line and tics. Default 0.
  void SetAxisStyle(int style);
  int GetAxisStyle() const;
  /// COpenGL::SetColorMode() while drawing; 2 also switches colouring by value on. Default 1.
  void SetColorMode(int mode);
  int GetColorMode() const;
  /// Depth of the wall that the axis lies on, as a fraction of the range across it; labels keep
  /// clear of it. Default 0.05.
  void SetAxisWallThickness(double thickness);
  double GetAxisWallThickness() const;
  /// @}

  /// @name Place, in world coordinates
  /// The other axes of x are y and z, of y they are x and z, of z they are x and y.
  /// @{

  /// Position on the first and on the second other axis. Default 0 and 0.
  void SetAxisIntercept(double first, double second);
  /// Position on the first other axis. Default 0.
  void SetAxisIntercept1(double first);
  double GetAxisIntercept1() const;
  /// Position on the second other axis. Default 0.
  void SetAxisIntercept2(double second);
  double GetAxisIntercept2() const;
  /// 0: the centre point; 1 and 2: the intercepts. Others act as the nearest.
  double GetAxisIntercept(int which) const;
  /// 0: the axis itself; 1 and 2: its first and second other axis. Others act as the nearest.
  int GetAxisInterceptAxis(int which) const;
  /// The points of the minimum and of the maximum.
  void GetAxisEndPoints(point3Dtype& start, point3Dtype& end) const;
  /// The point of a value on the axis.
  void GetAxisPoint(point3Dtype& point, double value) const;
  /// @}

  /// @name Drawing
  /// The context must be current and the transform's chart transformation loaded.
  /// @{

  /// The line, then the tics.
  void DrawAxis();
  /// The line alone.
  void DrawAxisLine();
  /// The tics alone.
  void DrawAxisTics();
  /// @}

  /// Addition: 0 x, 1 y, 2 z.
  int GetAxisIndex() const;
  /// Addition: id of the transform, as bound or as loaded.
  int GetTransformID() const;
  /// Addition: 303 in a live object.
  int GetClassTag() const;

  /// Writes the axis's record to an open file. Null does nothing.
  /// @throws CErr3D type 7, class 2, "Save"
  void Save(void* file) const;
  /// Reads the record from an open file. The counter becomes the stored one. Null does nothing.
  /// @throws CErr3D type 7, class 2, "Load"
  void Load(void* file);

  /// Addition: appends every number that shapes what is drawn.
  void AppendShape(std::vector<double>& numbers) const;

  static int nSelfID;  ///< axes counted so far; Load() overwrites it

 private:
  template <class Record, class Self>
  static void RecordFields(Record& record, Self& self);

  bool IsDrawn() const;
  void DrawTic(double value, bool major);
  void calcticpoint(point3Dtype& point, double length, int direction) const;

  COpenGL* m_context;         ///< not owned
  CTransform3D* m_transform;  ///< not owned
  int m_axis;                 ///< 0 x, 1 y, 2 z
  int m_ticDir;               ///< direction code of the tics
  int m_style;                ///< line style
  int m_nthTicMajor;          ///< 0: no major tics
  int m_colorMode;
  RGBDType m_axisColor;
  RGBDType m_ticColor;
  double m_thickness;  ///< pixels
  double m_min;        ///< smaller limit
  double m_max;        ///< larger limit
  double m_start;      ///< first limit as given
  double m_stop;       ///< second limit as given
  double m_minorTicLength;
  double m_majorTicLength;
  double m_wallThickness;  ///< fraction of the range across
  double m_ticSpace;       ///< axis units
  double m_centerPoint;    ///< where tics are counted from
  double m_intercept1;     ///< position on the first other axis
  double m_intercept2;     ///< position on the second other axis
  int m_axisSet;           ///< 1 once limits were set
  int m_transformID;       ///< id of the transform
  int m_classTag;          ///< 303 marks a live object
};

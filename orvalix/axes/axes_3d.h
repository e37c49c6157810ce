/// @file
/// The frame of a chart: three axes with their labels, and six planes with grids and walls.
#pragma once

#include <array>
#include <memory>
#include <vector>

#include "orvalix/foundation/value_types.h"
#include "orvalix/host/host.h"
#include "orvalix/render/kept_drawing.h"

class CAxis3D;
class CAxisLabels3D;
class COpenGL;
class CTransform3D;

/// Three axes with labels (index 0 x, 1 y, 2 z) and six planes of the box between the frame's
/// limits: 0 x-y at the minimum of z, 1 x-z at the minimum of y, 2 y-z at the minimum of x, and 3
/// to 5 the same at the maximum. A plane can carry a grid, a flat fill, or a wall (a slab behind
/// it).
///
/// Everything that is enabled is drawn, from wherever the chart is seen; a fresh frame draws
/// nothing. Setting tics, labels, a grid, a plane or a wall with one call also enables it.
///
/// Axes and planes with other numbers don't exist: setting their properties does nothing, and
/// reading gives 0.
class ORVALIX_API CAxes3D {
 public:
  /// Defaults only; bound to nothing.
  /// @throws CErr3D type 3, class 1, "SetAxesDefaults", or class 3
  CAxes3D();
  /// Defaults, limits from `min` to `max` in world coordinates, then InitAxes().
  /// @throws CErr3D as InitAxes()
  CAxes3D(COpenGL* context, CTransform3D* transform, point3Dtype const& min,
          point3Dtype const& max);
  /// Deletes the axes and labels.
  ~CAxes3D();
  CAxes3D(const CAxes3D&) = delete;
  CAxes3D& operator=(const CAxes3D&) = delete;

  /// Binds the frame with its axes and labels, and gives each axis the frame's limits; neither
  /// object is owned, and both must outlive the frame's use.
  /// @throws CErr3D class 1, "InitAxes": type 16 or 15 for a context or a transform that is null or
  ///   no live one; the frame is then bound to nothing
  void InitAxes(COpenGL* context, CTransform3D* transform);
  /// Addition: binds the frame as InitAxes() does, but leaves each axis the limits that it has, as
  /// a frame needs it that was loaded.
  void BindAxes(COpenGL* context, CTransform3D* transform);
  /// Limits of the planes and of all three axes, in world coordinates. Default 0 and 0.
  void SetAxesLimits(point3Dtype const& min, point3Dtype const& max);
  /// Addition: the limits.
  void GetAxesLimits(point3Dtype& min, point3Dtype& max) const;
  /// The frame's own axis, for direct use; null for another index.
  CAxis3D* GetAxis(int axis) const;
  /// The frame's own labels, for direct use; null for another index.
  CAxisLabels3D* GetAxisLabels(int axis) const;

  /// Draws axis lines with tics, then planes 0 to 5 (grid, fill, wall), then labels. The context
  /// must be current. Draws nothing when bound to nothing.
  void DrawAxes();

  /// @name What is drawn
  /// @{

  /// Line and tics of an axis. Default 0.
  void EnableAxis(int axis, int flag);
  int GetAxisEnable(int axis) const;
  /// Labels and title of an axis. Default 0.
  void EnableAxisLabels(int axis, int flag);
  int GetAxisLabelsEnable(int axis) const;
  /// COpenGL::SetColorMode() of an axis, also handed to the axis itself. Default 1.
  void SetAxisColorMode(int axis, int mode);
  /// The axis's own mode.
  int GetAxisColorMode(int axis) const;
  /// @}

  /// @name Grids
  /// @{

  /// The grid of a plane. Default 0.
  void EnableGrid(int plane, int flag);
  int GetGridEnable(int plane) const;
  /// Sets the six properties below at once and switches the grid on.
  void SetPlaneGrid(int plane, int nthTic1, int nthTic2, RGBDType const& color, double thickness,
                    int style, int wallFlag);
  /// Sets colour and thickness. Kept: the style isn't used.
  void SetPlaneGridAttrib(int plane, RGBDType const& color, double thickness, int style);
  /// Default black.
  void SetPlaneGridColor(int plane, RGBDType const& color);
  RGBDType GetPlaneGridColor(int plane) const;
  /// Grid lines stand at every n-th tic of the plane's first axis; 0: none. Default 1. On a
  /// logarithmic axis 5 draws 1, 2 and 5 per decade, 10 and more decades alone, others all tics.
  void SetPlaneGridNthTic1(int plane, int n);
  int GetPlaneGridNthTic1(int plane) const;
  /// The same for the plane's second axis.
  void SetPlaneGridNthTic2(int plane, int n);
  int GetPlaneGridNthTic2(int plane) const;
  /// COpenGL::SetLineStyle(). Default 1.
  void SetPlaneGridStyle(int plane, int style);
  int GetPlaneGridStyle(int plane) const;
  /// Pixels. Default 1.
  void SetPlaneGridThickness(int plane, double thickness);
  double GetPlaneGridThickness(int plane) const;
  /// Nonzero draws each grid line on across the thickness of the wall, at both ends. Default 0.
  void SetPlaneGridWallFlag(int plane, int flag);
  int GetPlaneGridWallFlag(int plane) const;
  /// @}

  /// @name Fills and walls
  /// @{

  /// Sets both colours, makes the plane a flat fill and switches it on. Both are black with alpha 0
  /// by default.
  void SetPlaneColor(int plane, RGBDType const& fill, RGBDType const& outline);
  /// The fill colour.
  RGBDType GetPlaneColor(int plane) const;
  /// Sets both colours, makes the plane a wall and switches it on.
  void SetWallPlane(int plane, RGBDType const& fill, RGBDType const& outline);
  /// The fill colour.
  RGBDType GetWallColor(int plane) const;
  /// Fill or wall of a plane. Default 0.
  void EnablePlane(int plane, int flag);
  int GetPlaneEnable(int plane) const;
  /// Kept: the same switch as EnablePlane(), for a flat fill too.
  void EnableWall(int plane, int flag);
  int GetWallEnable(int plane) const;
  /// COpenGL::SetColorMode() of fill or wall; 2 also switches colouring by value on. Default 1.
  void SetPlaneColorMode(int plane, int mode);
  int GetPlaneColorMode(int plane) const;
  /// Default black with alpha 0.
  void SetOutlineColor(int plane, RGBDType const& color);
  RGBDType GetOutlineColor(int plane) const;
  /// Pixels. Default 2.
  void SetOutlineWidth(int plane, double width);
  double GetOutlineWidth(int plane) const;
  /// Nonzero outlines the fills and walls of all planes. Default 1.
  void SetOutlineMode(int mode);
  int GetOutlineMode() const;
  /// Gap behind the plane: of a fill as a fraction of the extent across the plane; of a wall ten
  /// times this fraction of its thickness, and on its sides this fraction of the extent there.
  /// Default 0.002.
  void SetWallOffset(int plane, double offset);
  double GetWallOffset(int plane) const;
  /// Depth of a wall as a fraction of the extent across the plane; also handed to the axes in the
  /// plane, whose labels keep clear of it. Default 0.06.
  void SetWallThickness(int plane, double thickness);
  double GetWallThickness(int plane) const;
  /// @}

  /// @name Properties of an axis
  /// Each is the one of the same name in CAxis3D.
  /// @{
  void SetAxisAttrib(int axis, RGBDType const& axisColor, RGBDType const& ticColor,
                     double thickness, int style);
  /// Also switches the axis on.
  void SetAxisTics(int axis, double centerPoint, double ticSpace, int nthTicMajor,
                   double minorTicLength, double majorTicLength, int ticDir);
  void SetAxisLimits(int axis, double start, double stop);
  void SetAxisMin(int axis, double value);
  void SetAxisMax(int axis, double value);
  void SetAxisIntercept(int axis, double first, double second);
  void SetAxisIntercept1(int axis, double first);
  void SetAxisIntercept2(int axis, double second);
  void SetAxisCenterPoint(int axis, double value);
  void SetAxisColor(int axis, RGBDType const& color);
  void SetAxisTicColor(int axis, RGBDType const& color);
  void SetAxisThickness(int axis, double thickness);
  void SetAxisStyle(int axis, int style);
  void SetAxisTicSpace(int axis, double space);
  void SetAxisTicDir(int axis, int direction);
  void SetAxisMajorTicLength(int axis, double length);
  void SetAxisMinorTicLength(int axis, double length);
  void SetAxisNthTicMajor(int axis, int n);
  double GetAxisMin(int axis) const;
  double GetAxisMax(int axis) const;
  double GetAxisRange(int axis) const;
  double GetAxisStart(int axis) const;
  double GetAxisStop(int axis) const;
  double GetAxisIntercept1(int axis) const;
  double GetAxisIntercept2(int axis) const;
  double GetAxisCenterPoint(int axis) const;
  RGBDType GetAxisColor(int axis) const;
  RGBDType GetAxisTicColor(int axis) const;
  double GetAxisThickness(int axis) const;
  int GetAxisStyle(int axis) const;
  double GetAxisTicSpace(int axis) const;
  int GetAxisTicDir(int axis) const;
  double GetAxisMajorTicLength(int axis) const;
  double GetAxisMinorTicLength(int axis) const;
  int GetAxisNthTicMajor(int axis) const;
  int GetAxisScaleMode(int axis) const;
  /// @}

  /// @name Properties of the labels and the title of an axis
  /// Each is the one of the same name in CAxisLabels3D.
  /// @{

  /// Also switches the labels on.
  void SetAxisLabels(int axis, int plane, int rotation, int direction, int decimals, int ends,
                     RGBDType const& color, const CString* strings, int count);
  /// Also switches the labels on.
  void SetAxisLabelsStrings(int axis, const CString* strings, int count);
  CString* GetAxisLabelsStrings(int axis) const;
  void EnableAxisLabelsStrings(int axis, int flag);
  int GetAxisLabelsStringEnable(int axis) const;
  /// CAxisLabels3D::GetNumAxisLabelsStrings().
  int GetNumAxisLabelStrings(int axis) const;
  /// Null is an empty title.
  /// @throws CErr3D type 2, class 1, "SetAxisTitleString"
  void SetAxisTitleString(int axis, const char* text);
  /// An axis that doesn't exist leaves `text` as it is.
  void GetAxisTitleString(int axis, CString& text) const;
  void SetAxisLabelsColor(int axis, RGBDType const& color);
  RGBDType GetAxisLabelsColor(int axis) const;
  void SetAxisLabelsDecimals(int axis, int value);
  int GetAxisLabelsDecimals(int axis) const;
  void SetAxisLabelsDir(int axis, int value);
  int GetAxisLabelsDir(int axis) const;
  void SetAxisLabelsEnds(int axis, int value);
  int GetAxisLabelsEnds(int axis) const;
  void SetAxisLabelsFlipX(int axis, int value);
  int GetAxisLabelsFlipX(int axis) const;
  void SetAxisLabelsFlipY(int axis, int value);
  int GetAxisLabelsFlipY(int axis) const;
  void SetAxisLabelsFormat(int axis, int value);
  int GetAxisLabelsFormat(int axis) const;
  void SetAxisLabelsNthTic(int axis, int value);
  int GetAxisLabelsNthTic(int axis) const;
  void SetAxisLabelsPlane(int axis, int value);
  int GetAxisLabelsPlane(int axis) const;
  void SetAxisLabelsRotation(int axis, int value);
  int GetAxisLabelsRotation(int axis) const;
  void SetAxisLabelsSize(int axis, double value);
  double GetAxisLabelsSize(int axis) const;
  void SetAxisLabelsTicOffset(int axis, double value);
  double GetAxisLabelsTicOffset(int axis) const;
  void SetAxisLabelsXJust(int axis, int value);
  int GetAxisLabelsXJust(int axis) const;
  void SetAxisLabelsYJust(int axis, int value);
  int GetAxisLabelsYJust(int axis) const;
  void SetAxisTitleColor(int axis, RGBDType const& color);
  RGBDType GetAxisTitleColor(int axis) const;
  void SetAxisTitleFlipX(int axis, int value);
  int GetAxisTitleFlipX(int axis) const;
  void SetAxisTitleFlipY(int axis, int value);
  int GetAxisTitleFlipY(int axis) const;
  void SetAxisTitlePlane(int axis, int value);
  int GetAxisTitlePlane(int axis) const;
  void SetAxisTitleSize(int axis, double value);
  double GetAxisTitleSize(int axis) const;
  /// @}

  /// Addition: id of the transform, as bound or as loaded.
  int GetTransformID() const;
  /// Addition: 202 in a live object.
  int GetClassTag() const;

  /// Writes the frame's record, with its axes and labels, to an open file. Null does nothing.
  /// @throws CErr3D type 7, "Save", of class 1, or that of the part that failed
  void Save(void* file) const;
  /// Reads the record from an open file. The counter becomes the stored one. Null does nothing.
  /// @throws CErr3D type 7, "Load", of class 1, or that of the part that failed
  void Load(void* file);

  static int nSelfID;  ///< frames counted so far; Load() overwrites it

 private:
  /// The grid of one plane.
  struct PlaneGrid {
    int nthTic1;       ///< lines at every n-th tic of the first axis; 0: none
    int nthTic2;       ///< the same for the second axis
    int wallFlag;      ///< nonzero: lines go on across the wall
    double thickness;  ///< pixels
    int style;         ///< line style
    RGBDType color;
    int enable;
  };
  /// The fill or wall of one plane.
  struct Plane {
    RGBDType color;
    RGBDType outlineColor;
    double wallThickness;  ///< fraction of the extent across
    double wallOffset;     ///< see SetWallOffset()
    double outlineWidth;   ///< pixels
    int wallMode;          ///< 0 flat fill, 1 wall
    int enable;
  };
  static constexpr int kAxes = 3;
  static constexpr int kPlanes = 6;

  /// Every number that shapes what is drawn, apart from labels.
  std::vector<double> Shape() const;

  template <class Record, class Self>
  static void RecordFields(Record& record, Self& self);
  template <class Record, class GridOrConst>
  static void RecordGrid(Record& record, GridOrConst& grid);
  template <class Record, class PlaneOrConst>
  static void RecordPlane(Record& record, PlaneOrConst& plane);

  void SetAxesDefaults();
  PlaneGrid* GridAt(int plane);
  const PlaneGrid* GridAt(int plane) const;
  Plane* PlaneAt(int plane);
  const Plane* PlaneAt(int plane) const;
  void SetFillOrWall(int plane, RGBDType const& fill, RGBDType const& outline, int wallMode);

  void DrawAxisLines();
  void DrawLabels();
  void DrawPlaneGrid(int plane);
  void DrawPlaneGridDirection(int plane, int direction);
  void DrawGridLine(int plane, int direction, double value);
  void DrawGridExtension(int plane, point3Dtype const& from);
  void DrawPlaneFill(int plane);
  void DrawPlaneWall(int plane);
  void BeginPlane(int plane);
  void EndPlane();
  static bool IsHighPlane(int plane);
  int PlaneAxis(int plane, int which) const;
  double NormalCoordinate(int plane) const;
  double Outwards(int plane, double share) const;
  point3Dtype CalcPlanePoint(int plane, point3Dtype const& point, double offset) const;

  COpenGL* m_context;         ///< not owned
  CTransform3D* m_transform;  ///< not owned
  std::array<std::unique_ptr<CAxis3D>, kAxes> m_axes;
  std::array<std::unique_ptr<CAxisLabels3D>, kAxes> m_axisLabels;
  std::array<PlaneGrid, kPlanes> m_grids;
  std::array<Plane, kPlanes> m_planes;
  /// Of each plane: its first and its second axis, and the one across it.
  std::array<std::array<int, 3>, kPlanes> m_planeAxes;
  point3Dtype m_min;  ///< world minimum of the frame
  point3Dtype m_max;  ///< world maximum of the frame
  std::array<int, kAxes> m_axisColorModes;
  std::array<int, kPlanes> m_planeColorModes;
  std::array<int, kAxes> m_axisLabelsEnable;
  std::array<int, kAxes> m_axisEnable;
  int m_outlineMode;                      ///< nonzero: fills and walls have outlines
  int m_transformID;                      ///< id of the transform
  int m_classTag;                         ///< 202 marks a live object
  orvalix::KeptDrawingSlot m_kept;        ///< axes, grids and planes as drawn last
  orvalix::KeptDrawingSlot m_keptLabels;  ///< as drawn last
};

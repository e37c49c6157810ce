/// @file
/// Solid and wire shapes in a chart.
#pragma once

#include "orvalix/foundation/value_types.h"
#include "orvalix/host/host.h"

class COpenGL;
class CTransform3D;

/// A shape at a point of a chart: it turns with the chart, but the scales of the axes don't distort
/// it.
///
/// A chart makes its shapes (CChart3D::NewAuxObj()) and deletes them. In a chart whose rectangle
/// isn't square, shapes are stretched as that is.
class ORVALIX_API CAuxObj3D {
 public:
  /// Shape types; other numbers draw nothing. The sizes are those of SetSizeParameters().
  enum AuxObjTypes {
    kSphere = 1,        ///< radius: size 1
    kCube = 2,          ///< edge: size 1
    kBox = 3,           ///< width, height, depth: sizes 1 to 3
    kTorus = 4,         ///< radius of the tube: size 1; of the ring: size 2
    kCylinder = 5,      ///< radius: size 1; height: size 2; open at both ends
    kIcosahedron = 6,   ///< radius: size 1
    kOctahedron = 7,    ///< radius: size 1
    kTetrahedron = 8,   ///< radius: size 1
    kDodecahedron = 9,  ///< radius: size 1, divided by 1.73
    kCone = 10          ///< radius of the base: size 1; height: size 2; open at the base
  };

  /// Defaults only; bound to nothing and not drawn.
  CAuxObj3D();
  /// Defaults, then InitAuxObj(), and the type.
  CAuxObj3D(COpenGL* context, CTransform3D* transform, int type);

  /// Binds to a rendering context and a transform; both stay the caller's and must outlive the
  /// shape.
  /// @throws CErr3D class 0, "InitAuxObj": type 16 for something that is no live context, type 15
  ///   for something that is no live transform; the binding is then as it was
  void InitAuxObj(COpenGL* context, CTransform3D* transform);

  /// Draws the shape at its normalised location. Does nothing while it isn't bound.
  void DrawAuxObj();

  /// One of AuxObjTypes. Default 0.
  void SetAuxObjType(int type);
  int GetAuxObjType() const;
  /// Nonzero: solid (default); 0: wire.
  void SetSolidType(int type);
  int GetSolidType() const;
  /// Of solids: 0 flat colours, 1 lit (default). With any other number a solid has the colour of
  /// whatever was drawn before.
  void SetColorMode(int mode);
  int GetColorMode() const;
  /// Dimensions of the shape, before the scale factor. Default 1 each.
  void SetSizeParameters(double size1, double size2, double size3);
  /// The first dimension.
  double GetSizeParameter1() const;
  /// The second dimension.
  double GetSizeParameter2() const;
  /// The third dimension.
  double GetSizeParameter3() const;
  /// Normalised units, of which the view has two, per unit of size. Default 0.05.
  void SetScaleFactor(double factor);
  double GetScaleFactor() const;
  /// Stores a place in world coordinates and the normalised one that follows from it, now: a scale
  /// that changes later doesn't move the shape. While the shape isn't bound there is no normalised
  /// place to follow: set the location after InitAuxObj(). Default (0, 0, 0).
  void SetLocation(point3Dtype const& location);
  point3Dtype GetLocation() const;
  /// Stores the place where the shape is drawn, in normalised coordinates. Default (0, 0, 0).
  void SetNormLocation(point3Dtype const& location);
  point3Dtype GetNormLocation() const;
  /// Turns about x, y and z, in degrees. Default 0.
  void SetRotation(point3Dtype const& degrees);
  point3Dtype GetRotation() const;
  /// Of faces, or of the lines of a wire shape. Default white.
  void SetColor(RGBDType const& color);
  RGBDType GetColor() const;
  /// Of lines, in pixels. Default 1.
  void SetLineThickness(double thickness);
  double GetLineThickness() const;
  /// Nonzero draws the edges of a solid in black; spheres, rings and cones have none. Default 0; it
  /// is not saved.
  void SetOutlineMode(int mode);
  int GetOutlineMode() const;
  /// Addition: id of the transform that the shape was bound to last. Default 0.
  int GetTransformID() const;
  /// Addition: 101 in a live object.
  int GetClassTag() const;

  /// Writes the record to an open file. Null does nothing.
  /// @throws CErr3D class 0, "Save": type 7, or type 2 when memory runs out
  void Save(void* file) const;
  /// Reads the record from an open file; the shape counter becomes the stored one. Null does
  /// nothing.
  /// @throws CErr3D class 0, "Load": type 7, or type 2 when memory runs out
  void Load(void* file);

  static int nSelfID;  ///< shapes counted so far; Load() overwrites it

 private:
  template <class Record, class Self>
  static void RecordFields(Record& record, Self& self);

  void InitAuxObjDefaults();
  bool HasEdges() const;

  COpenGL* m_context;          ///< not owned
  CTransform3D* m_transform;   ///< not owned
  int m_type;                  ///< one of AuxObjTypes
  int m_solidType;             ///< 0: wire
  int m_colorMode;             ///< of the context, for solids
  point3Dtype m_size;          ///< dimensions before the scale
  double m_scaleFactor;        ///< normalised units per unit of size
  point3Dtype m_location;      ///< world coordinates
  point3Dtype m_normLocation;  ///< normalised coordinates
  point3Dtype m_rotation;      ///< degrees about x, y, z; v is only saved
  RGBDType m_color;
  double m_lineThickness;  ///< pixels
  int m_outlineMode;       ///< nonzero: solids have black edges
  int m_transformID;       ///< id of the transform bound last
  int m_classTag;          ///< 101 marks a live object
};

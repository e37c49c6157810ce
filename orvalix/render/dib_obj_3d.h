/// @file
/// Pictures in a chart.
#pragma once

#include <memory>

#include "orvalix/foundation/value_types.h"
#include "orvalix/host/host.h"

class CDib;
class COpenGL;
class CTransform3D;

/// A bitmap file on a plane of a chart, upright along z: it turns with the chart.
///
/// Three points place it: its lower left, its upper left and its upper right corner. Kept: the
/// lower right corner is the upper right one at the height of the first point; stored charts count
/// on it also where the plane leans.
///
/// A chart makes its pictures (CChart3D::NewDIBObj()) and deletes them.
class ORVALIX_API CDIBObj3D {
 public:
  /// Defaults only; bound to nothing and not drawn.
  CDIBObj3D();
  /// Defaults, then the file name, then InitDIBObj().
  CDIBObj3D(COpenGL* context, CTransform3D* transform, CString const& fileName);
  /// Deletes the bitmap.
  ~CDIBObj3D();
  CDIBObj3D(const CDIBObj3D&) = delete;
  CDIBObj3D& operator=(const CDIBObj3D&) = delete;

  /// Makes the object unbound and without a bitmap, and sets every property to its default.
  void InitDIBObjDefaults();
  /// Binds to a rendering context and a transform, which both stay the caller's and must outlive
  /// the object, loads the file that the file name tells, and counts the object. Without a file
  /// name, and with a file that CDib finds to be no bitmap, the object is bound and draws nothing.
  /// @throws CErr3D class 10, "InitDIBObj": type 16 for something that is no live context, type 15
  ///   for something that is no live transform (the object is then as it was), type 3 when memory
  ///   runs out; class 8: what CDib throws, for example type 5, "LoadBitmapFile" for a missing
  ///   file. Once the context and the transform have been accepted, an object whose file can't be
  ///   had is bound, keeps its file name, and draws nothing
  void InitDIBObj(COpenGL* context, CTransform3D* transform);

  /// Draws the picture. While the norm mode is 0, the norm plane points are made from the plane
  /// points before, by the transform's present scale. Does nothing without a context, a transform
  /// or a bitmap, nor where a corner has no place, or where the driver takes no texture of that
  /// size.
  void DrawDIBObj();

  /// The bitmap file, which the next InitDIBObj() loads. Default empty.
  /// @throws CErr3D type 2, class 10, "SetDIBFilename"
  void SetDIBFilename(CString const& fileName);
  /// @throws CErr3D type 2, class 10, "GetDIBFilename"
  CString GetDIBFilename() const;
  /// Lower left, upper left and upper right corner in world coordinates; sets the norm mode to 0.
  /// Default (0, 0, 0), (0, 0, 1) and (1, 0, 1).
  void SetPlanePoints(point3Dtype const& lowerLeft, point3Dtype const& upperLeft,
                      point3Dtype const& upperRight);
  void GetPlanePoints(point3Dtype& lowerLeft, point3Dtype& upperLeft,
                      point3Dtype& upperRight) const;
  /// The same corners in normalised coordinates; sets the norm mode to 1. Default as the plane
  /// points.
  void SetNormPlanePoints(point3Dtype const& lowerLeft, point3Dtype const& upperLeft,
                          point3Dtype const& upperRight);
  /// The corners where the picture was drawn last or is to be drawn, in normalised coordinates.
  void GetNormPlanePoints(point3Dtype& lowerLeft, point3Dtype& upperLeft,
                          point3Dtype& upperRight) const;
  /// Addition: 0 while the plane points place the picture (default), else the norm plane points do.
  int GetNormMode() const;
  /// How many times the picture stands side by side across the plane, and on itself up the plane;
  /// negative numbers mirror it. Default 1 and 1.
  void SetRepeatFactors(int across, int up);
  /// How many times across.
  int GetRepeatFactorX() const;
  /// How many times up.
  int GetRepeatFactorY() const;
  /// Addition: id of the transform that the object was bound to last. Default 0.
  int GetTransformID() const;
  /// Addition: 1010 in a live object.
  int GetClassTag() const;

  /// Writes the record to an open file. Null does nothing.
  /// @throws CErr3D class 10, "Save": type 7, or type 2 when memory runs out
  void Save(void* file) const;
  /// Reads the record from an open file; the counter becomes the stored one. The bitmap is loaded
  /// by the next InitDIBObj(). Null does nothing.
  /// @throws CErr3D class 10, "Load": type 7, or type 2 when memory runs out
  void Load(void* file);

  static int nSelfID;  ///< successful InitDIBObj() so far; Load() overwrites it

 private:
  template <class Record, class Self>
  static void RecordFields(Record& record, Self& self);

  void NormalizePlanePoints();

  COpenGL* m_context;              ///< not owned
  CTransform3D* m_transform;       ///< not owned
  std::unique_ptr<CDib> m_bitmap;  ///< the loaded file
  unsigned char* m_texturePixels;  ///< of m_bitmap; null: nothing to draw
  point3Dtype m_planePoint1;       ///< lower left corner, world coordinates
  point3Dtype m_planePoint2;       ///< upper left corner
  point3Dtype m_planePoint3;       ///< upper right corner
  point3Dtype m_normPlanePoint1;   ///< lower left corner, normalised coordinates
  point3Dtype m_normPlanePoint2;   ///< upper left corner
  point3Dtype m_normPlanePoint3;   ///< upper right corner
  CString m_fileName;              ///< bitmap file to load
  int m_repeatX;                   ///< pictures side by side
  int m_repeatY;                   ///< pictures one on another
  int m_normMode;                  ///< 0: the plane points place the picture
  int m_transformID;               ///< id of the transform bound last
  int m_classTag;                  ///< 1010 marks a live object
};

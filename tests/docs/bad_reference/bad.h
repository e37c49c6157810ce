/// @file
/// Comments as they shouldn't be.
#pragma once

/// A class.
class CBad3D {
 public:
  CBad3D(const CBad3D&) = delete;

  /// Has a pair.
  void SetWidth(double width);
  double GetWidth() const;
  double GetHeight() const;

  double GetWidth(int index) const;
  /// @param length isn't there
  void SetLength(double metres);

  /// @name Of another class
  /// Each is the one of the same name in CGood3D.
  /// @{
  void SetColor(int color);
  void SetColour(int color);
  /// @}

  int m_count;
  int m_size;  ///< bytes

 private:
  void Hidden();
};

/// Another class.
class CGood3D {
 public:
  /// The colour.
  void SetColor(int color);
  int GetColor() const;
};

struct NoComment {
  int x;  ///< documented
};

/// Both.
void auxSolidThing(double size);
void auxWireThing(double size);
void auxWireOther(double size);

namespace orvalix {

struct Inner {};

}  // namespace orvalix

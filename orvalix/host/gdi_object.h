/// @file
/// The owner of a bitmap or a palette.
#pragma once

#include "orvalix/host/export.h"
#include "orvalix/host/host_types.h"

/// Owns a drawing object by its handle. One drawing object has one owner at most.
class ORVALIX_API CGdiObject {
 public:
  /// Owns nothing yet.
  CGdiObject() = default;
  /// Deletes what is owned. An object that is selected into a device context lives on until it is
  /// selected out of it.
  virtual ~CGdiObject();
  CGdiObject(const CGdiObject&) = delete;
  CGdiObject& operator=(const CGdiObject&) = delete;

  /// The handle; null when nothing is owned.
  HGDIOBJ GetSafeHandle() const;
  /// Takes over a handle.
  /// @return FALSE, with nothing changed, for a null or unknown handle, one that has an owner, or
  ///   when something is owned already
  BOOL Attach(HGDIOBJ object);
  /// Gives the handle away; null when nothing is owned.
  HGDIOBJ Detach();
  /// Deletes what is owned.
  /// @return FALSE when there is nothing, or when it is selected into a device context: then it
  ///   stays owned
  BOOL DeleteObject();
  /// Describes the object as GetObjectA() does.
  int GetObject(int size, void* description) const;

  HGDIOBJ m_hObject = nullptr;  ///< what is owned
};

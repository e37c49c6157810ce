#include "orvalix/host/gdi_object.h"

#include "orvalix/host/gdi.h"
#include "orvalix/host/gdi_handle_internal.h"

CGdiObject::~CGdiObject() {
  auto* object = orvalix::FindGdiHandle(m_hObject);
  if (object != nullptr && object->Owner() == this) object->GiveUp();
}

HGDIOBJ CGdiObject::GetSafeHandle() const { return m_hObject; }

BOOL CGdiObject::Attach(HGDIOBJ object) {
  auto* handle = orvalix::FindGdiHandle(object);
  if (handle == nullptr || m_hObject != nullptr || handle->Owner() != nullptr) return FALSE;
  // Stock objects belong to everybody.
  if (!handle->IsStock()) handle->SetOwner(this);
  m_hObject = object;
  return TRUE;
}

HGDIOBJ CGdiObject::Detach() {
  auto* handle = orvalix::FindGdiHandle(m_hObject);
  if (handle != nullptr && handle->Owner() == this) handle->SetOwner(nullptr);
  const HGDIOBJ object = m_hObject;
  m_hObject = nullptr;
  return object;
}

BOOL CGdiObject::DeleteObject() {
  const HGDIOBJ object = m_hObject;
  auto* handle = orvalix::FindGdiHandle(object);
  if (handle != nullptr && !handle->IsStock() && handle->IsSelected()) return FALSE;
  // Deleting the object may destroy this one, if it is a stand-in.
  m_hObject = nullptr;
  return ::DeleteObject(object);
}

int CGdiObject::GetObject(int size, void* description) const {
  return GetObjectA(m_hObject, size, description);
}

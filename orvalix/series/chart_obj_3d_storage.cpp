#include <algorithm>
#include <cstddef>
#include <new>
#include <utility>

#include "orvalix/foundation/class_tags_internal.h"
#include "orvalix/foundation/throw_error_internal.h"
#include "orvalix/series/chart_obj_3d.h"

namespace {

std::size_t ToSize(int count) { return static_cast<std::size_t>(std::max(count, 0)); }

/// Makes `storage` a copy of the first `count` elements of `source`.
template <class T>
void Copy(std::vector<T>& storage, const T* source, std::size_t count, const char* place) {
  orvalix::WithAllocationErrors(ERR3D_ARRAY_NEW, ERR3DCLASS_CHARTOBJ3D, place, [&] {
    if (count > storage.max_size()) throw std::bad_alloc();
    std::vector<T>(source, source + count).swap(storage);
  });
}

template <class T>
void Free(std::vector<T>& storage) {
  std::vector<T>().swap(storage);
}

}  // namespace

template <class T>
CChartObj3D::StoredArray<T>::StoredArray(const StoredArray& source)
    : std::vector<T>(orvalix::WithAllocationErrors(
          ERR3D_ARRAY_NEW, ERR3DCLASS_CHARTOBJ3D,
          "operator=", [&] { return std::vector<T>(source.begin(), source.end()); })) {}

CChartObj3D::CChartObj3D(const CChartObj3D& source) = default;

CChartObj3D::CChartObj3D(CChartObj3D&& source) noexcept = default;

CChartObj3D::~CChartObj3D() = default;

CChartObj3D& CChartObj3D::operator=(const CChartObj3D& source) {
  CChartObj3D copy(source);
  return *this = std::move(copy);
}

CChartObj3D& CChartObj3D::operator=(CChartObj3D&& source) noexcept = default;

void CChartObj3D::InitIndDataStorage(const double* source) {
  m_kept.Forget();
  if (source != nullptr) Copy(m_indData, source, ToSize(m_numDataPnts), "InitIndDataStorage");
}

void CChartObj3D::DeleteIndDataStorage() {
  m_kept.Forget();
  Free(m_indData);
}

void CChartObj3D::InitDepDataStorage(const double* source) {
  m_kept.Forget();
  if (source != nullptr) Copy(m_depData, source, ToSize(m_numDataPnts), "InitDepDataStorage");
}

void CChartObj3D::DeleteDepDataStorage() {
  m_kept.Forget();
  Free(m_depData);
}

void CChartObj3D::InitDepData2Storage(const double* source) {
  m_kept.Forget();
  if (source == nullptr) return;
  Copy(m_depData2, source, ToSize(m_numDataPnts), "InitDepData2Storage");
  m_dep2Count = m_numDataPnts;
}

void CChartObj3D::DeleteDepData2Storage() {
  m_kept.Forget();
  Free(m_depData2);
}

void CChartObj3D::InitBarHeightsStorage(const double* source) {
  m_kept.Forget();
  if (source == nullptr) return;
  Copy(m_barHeights, source, ToSize(m_numDataPnts), "InitBarHeightsStorage");
  m_barHeightsCount = m_numDataPnts;
}

void CChartObj3D::DeleteBarHeightsStorage() {
  m_kept.Forget();
  Free(m_barHeights);
}

void CChartObj3D::InitGroupDataStorage(const double* source) {
  m_kept.Forget();
  if (source == nullptr) return;
  Copy(m_groupData, source, ToSize(m_numDataPnts) * ToSize(m_numGroups), "InitGroupDataStorage");
}

void CChartObj3D::DeleteGroupDataStorage() {
  m_kept.Forget();
  Free(m_groupData);
}

void CChartObj3D::InitGroupColorsStorage(const RGBDType* source) {
  m_kept.Forget();
  if (source == nullptr) return;
  Copy(m_groupColors, source, ToSize(m_numGroups), "InitGroupColorsStorage");
  m_groupColorsCount = m_numGroups;
}

void CChartObj3D::DeleteGroupColorsStorage() {
  m_kept.Forget();
  Free(m_groupColors);
}

void CChartObj3D::InitSegmentColorsStorage(const RGBDType* source) {
  m_kept.Forget();
  if (source == nullptr) {
    m_segmentColorMode = 0;
    return;
  }
  Copy(m_segmentColors, source, ToSize(m_numDataPnts), "InitSegmentColorsStorage");
  m_segmentColorsCount = m_numDataPnts;
  m_segmentColorMode = 1;
}

void CChartObj3D::DeleteSegmentColorsStorage() {
  m_kept.Forget();
  Free(m_segmentColors);
}

void CChartObj3D::Init3DPointStorage(const point3Dtype* source) {
  m_kept.Forget();
  if (source == nullptr) {
    m_numDataPnts = 0;
    return;
  }
  Copy(m_points, source, ToSize(m_numDataPnts), "Init3DPointStorage");
  m_pointCount = m_numDataPnts;
}

void CChartObj3D::Delete3DPointStorage() {
  m_kept.Forget();
  Free(m_points);
}

void CChartObj3D::InitContourValueStorage(const double* source) {
  m_kept.Forget();
  if (source != nullptr) Copy(m_indData, source, ToSize(m_numContours), "InitContourValueStorage");
}

void CChartObj3D::DeleteContourValueStorage() {
  m_kept.Forget();
  Free(m_indData);
}

void CChartObj3D::InitContourColorsStorage(const RGBDType* source) {
  m_kept.Forget();
  if (source == nullptr) return;
  const std::size_t count = m_numContours < 0 ? 0 : ToSize(m_numContours) + 1;
  Copy(m_segmentColors, source, count, "InitContourColorsStorage");
}

void CChartObj3D::DeleteContourColorsStorage() {
  m_kept.Forget();
  Free(m_segmentColors);
}

void CChartObj3D::InitPolysurfaceStorage(const CPolysurface* source) {
  m_kept.Forget();
  constexpr const char* kPlace = "InitPolysurfaceStorage";
  if (source == nullptr) return;
  orvalix::RequireTag(source, orvalix::kPolysurfaceTag, ERR3D_PARAMETER, ERR3DCLASS_CHARTOBJ3D,
                      kPlace);
  orvalix::WithAllocationErrors(ERR3D_ARRAY_NEW, ERR3DCLASS_CHARTOBJ3D, kPlace, [&] {
    CPolysurface copy;
    copy.CopyContents(*source);
    m_polysurface = std::move(copy);
  });
  m_polysurfaceFlag = 1;
}

void CChartObj3D::DeletePolysurfaceStorage() {
  m_kept.Forget();
  m_polysurface.reset();
}

void CChartObj3D::InitDataStringsStorage(const CString* source) {
  m_kept.Forget();
  if (source == nullptr) return;
  Copy(m_strings, source, ToSize(m_numDataPnts), "InitDataStringsStorage");
  m_stringsCount = m_numDataPnts;
}

void CChartObj3D::DeleteDataStringsStorage() {
  m_kept.Forget();
  Free(m_strings);
}

void CChartObj3D::SetDataStorage25D(const double* ind, const double* dep, const double* dep2,
                                    int n) {
  m_numDataPnts = n;
  InitIndDataStorage(ind);
  // Kept: the dependent values go where the independent ones went; programs that use this routine
  // set their dependent values themselves.
  InitIndDataStorage(dep);
  InitDepData2Storage(dep2);
  InitBarHeightsStorage(dep2);
}

void CChartObj3D::SetGroupDataStorage(const double* ind, const double* group, int n, int numGroups,
                                      const RGBDType* colors) {
  m_numGroups = numGroups;
  m_numDataPnts = n;
  InitGroupColorsStorage(colors);
  InitIndDataStorage(ind);
  InitGroupDataStorage(group);
}

void CChartObj3D::SetContourStorage(const CPolysurface* surface, const double* values,
                                    const RGBDType* colors, int numContours) {
  m_numContours = numContours;
  InitPolysurfaceStorage(surface);
  InitContourValueStorage(values);
  InitContourColorsStorage(colors);
}

void CChartObj3D::SetPolysurface(const CPolysurface* surface) { InitPolysurfaceStorage(surface); }

void CChartObj3D::Set3DPointStorage(const point3Dtype* points, int n) {
  m_numDataPnts = n;
  Init3DPointStorage(points);
}

void CChartObj3D::SetDataStringsStorage(const point3Dtype* points, const CString* texts, int n) {
  m_numDataPnts = n;
  Init3DPointStorage(points);
  InitDataStringsStorage(texts);
}

void CChartObj3D::SetBarHeightsStorage(const double* heights) { InitBarHeightsStorage(heights); }

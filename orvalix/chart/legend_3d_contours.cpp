#include <algorithm>
#include <cstddef>
#include <vector>

#include "orvalix/chart/legend_3d.h"
#include "orvalix/chart/legend_obj_3d.h"
#include "orvalix/foundation/throw_error_internal.h"

namespace {

constexpr int kCubeSymbol = 3;

/// More digits than a double has tell nothing.
constexpr int kMostDecimals = 20;

}  // namespace

void CLegend3D::StoreContours(const double* values, const RGBDType* colors, int count, int decimals,
                              const RGBDType& textColor, int textColorFlag) {
  const auto contours = static_cast<std::size_t>(std::max(count, 0));
  m_contourTextColor = textColor;
  m_contourTextColorFlag = textColorFlag;
  m_contourDecimals = decimals;
  // Aside, so that values and colours stay together when memory runs out for the one or the other.
  std::vector<double> newValues = orvalix::WithAllocationErrors(
      ERR3D_ARRAY_NEW, ERR3DCLASS_LEGEND3D, "InitContourValueStorage", [&] {
        return values != nullptr ? std::vector<double>(values, values + contours) : m_contourValues;
      });
  std::vector<RGBDType> newColors = orvalix::WithAllocationErrors(
      ERR3D_ARRAY_NEW, ERR3DCLASS_LEGEND3D, "InitContourColorsStorage", [&] {
        std::vector<RGBDType> copy = colors != nullptr && count >= 0
                                         ? std::vector<RGBDType>(colors, colors + contours + 1)
                                         : m_contourColors;
        copy.resize(newValues.size() + 1, RGBDType{0.0, 0.0, 0.0, 1.0});
        return copy;
      });
  m_contourValues.swap(newValues);
  m_contourColors.swap(newColors);
}

CString CLegend3D::FormatValue(std::size_t index) const {
  CString text;
  text.Format("%1.*f", std::clamp(m_contourDecimals, 0, kMostDecimals), m_contourValues[index]);
  return text;
}

void CLegend3D::AppendBand(const CString& text, std::size_t color) {
  const RGBDType& band = m_contourColors[color];
  CLegendObj3D* entry = NewLegendObj(text, kCubeSymbol, band);
  entry->SetTextColor(m_contourTextColorFlag == 1 ? m_contourTextColor : band);
}

void CLegend3D::ContourLegend(const double* values, const RGBDType* colors, int count, int decimals,
                              const RGBDType& textColor, int textColorFlag,
                              const CString& upperText, const CString& lowerText) {
  StoreContours(values, colors, count, decimals, textColor, textColorFlag);
  orvalix::WithAllocationErrors(ERR3D_OBJECT_NEW, ERR3DCLASS_LEGEND3D, "NewLegendObj", [&] {
    const CString kGap("   ");
    const std::size_t bands = m_contourValues.size();
    m_upperText = upperText;
    m_lowerText = lowerText;
    if (bands == 0) return;
    if (bands > 1) AppendBand(m_upperText + kGap + FormatValue(bands - 2), bands - 1);
    for (std::size_t band = bands - 1; band-- > 1;) {
      AppendBand(FormatValue(band - 1) + CString(" - ") + FormatValue(band), band);
    }
    AppendBand(m_lowerText + kGap + FormatValue(0), 0);
  });
}

void CLegend3D::ContourLegend2(const double* values, const RGBDType* colors, int count,
                               int decimals, const RGBDType& textColor, int textColorFlag) {
  StoreContours(values, colors, count, decimals, textColor, textColorFlag);
  orvalix::WithAllocationErrors(ERR3D_OBJECT_NEW, ERR3DCLASS_LEGEND3D, "NewLegendObj", [&] {
    for (std::size_t i = m_contourValues.size(); i-- > 0;) AppendBand(FormatValue(i), i);
  });
}

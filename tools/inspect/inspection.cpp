#include "inspect/inspection.h"

#include <array>
#include <cstdint>
#include <filesystem>
#include <iomanip>
#include <sstream>
#include <string_view>
#include <vector>

#include "orvalix/orvalix.h"

namespace orvalix {
namespace {

constexpr int kOffsetWidth = 10;

const char* NameOf(CErr3DClass recordClass) {
  switch (recordClass) {
    case ERR3DCLASS_AUXOBJ3D:
      return "CAuxObj3D";
    case ERR3DCLASS_AXES3D:
      return "CAxes3D";
    case ERR3DCLASS_AXIS3D:
      return "CAxis3D";
    case ERR3DCLASS_AXISLABELS3D:
      return "CAxisLabels3D";
    case ERR3DCLASS_CHART3D:
      return "CChart3D";
    case ERR3DCLASS_CHARTOBJ3D:
      return "CChartObj3D";
    case ERR3DCLASS_CHARTVIEW3D:
      return "CChartView3D";
    case ERR3DCLASS_DIBOBJ3D:
      return "CDIBObj3D";
    case ERR3DCLASS_HEADER3D:
      return "CHeader3D";
    case ERR3DCLASS_LEGEND3D:
      return "CLegend3D";
    case ERR3DCLASS_LEGENDOBJ3D:
      return "CLegendObj3D";
    case ERR3DCLASS_POLYSURFACE:
      return "CPolysurface";
    case ERR3DCLASS_TEXTOBJ3D:
      return "CTextObj3D";
    case ERR3DCLASS_TRANSFORM3D:
      return "CTransform3D";
    default:
      return "record";
  }
}

/// Writes every field that is read, up to the first one that the file doesn't hold.
class TreeWriter : public CRecordTrace {
 public:
  explicit TreeWriter(std::ostream& out) : m_out(out) {}

  void BeginRecord(CErr3DClass recordClass, std::uint64_t offset) override {
    m_records.push_back(NameOf(recordClass));
    if (!m_hasEnded) Line(offset) << m_records.back() << '\n';
  }
  void EndRecord(std::uint64_t) override { m_records.pop_back(); }
  void BeginField(const char* name, std::uint64_t offset) override {
    if (m_hasEnded) return;
    m_field = name;
    m_offset = offset;
  }
  void EndField(const std::string& value, std::uint64_t offset) override {
    if (m_hasEnded) return;
    Line(m_offset) << "  " << m_field << ": " << value << '\n';
    m_field.clear();
    m_offset = offset;
  }
  void MissField() override {
    if (!m_hasEnded) RememberPlace();
    m_hasEnded = true;
  }

  bool HasEnded() const { return m_hasEnded; }
  /// The first byte that wasn't understood.
  std::uint64_t Offset() const { return m_offset; }
  /// The records and the field in which reading stopped.
  std::string Place() {
    if (!m_hasEnded) RememberPlace();
    return m_place;
  }

 private:
  std::ostream& Line(std::uint64_t offset) {
    const std::size_t depth = m_records.empty() ? 0 : m_records.size() - 1;
    return m_out << std::setw(kOffsetWidth) << offset << "  " << std::string(2 * depth, ' ');
  }
  void RememberPlace() {
    m_place.clear();
    for (const std::string& record : m_records) m_place += record + ", ";
    m_place += m_field.empty() ? "after the last field told" : "\"" + m_field + "\"";
  }

  std::ostream& m_out;
  std::vector<std::string> m_records;  ///< begun and not ended, the outermost first
  std::string m_field;                 ///< begun and not ended
  std::uint64_t m_offset = 0;
  bool m_hasEnded = false;  ///< the file is too short
  std::string m_place;      ///< where it ended
};

/// What reading a file as one kind gives.
struct Reading {
  std::string text;
  std::uint64_t understood;  ///< bytes
  bool isWhole;
};

template <class Object>
Reading ReadAs(const std::string& fileName, const char* kind) {
  std::ostringstream text;
  text << kind << '\n';
  const std::uint64_t length = std::filesystem::file_size(fileName);
  TreeWriter tree(text);
  std::string trouble;
  try {
    Object object;
    object.Load(CString(fileName.c_str()));
  } catch (const CErr3D& error) {
    if (error.GetErrorType() == ERR3D_FILE_OPEN_INPUT) throw;
    trouble = "makes no sense";
  }
  if (tree.HasEnded()) trouble = "ends too early";
  if (!trouble.empty()) {
    text << "\nbroken: the file " << trouble << " at byte " << tree.Offset() << " of " << length
         << ", in " << tree.Place() << '\n';
  } else if (tree.Offset() < length) {
    text << "\nbroken: " << length - tree.Offset() << " bytes follow the end at byte "
         << tree.Offset() << '\n';
  } else {
    text << "\nwhole: " << length << " bytes\n";
  }
  return {text.str(), tree.Offset(), trouble.empty() && tree.Offset() == length};
}

}  // namespace

bool Inspect(const std::string& fileName, FileKind kind, std::ostream& out) {
  CErr3D::SetErrorReportMode(0);
  const auto asChart = [&] { return ReadAs<CChartView3D>(fileName, "chart file"); };
  const auto asSurface = [&] { return ReadAs<CPolysurface>(fileName, "polysurface file"); };
  Reading reading = kind == FileKind::kPolysurface ? asSurface() : asChart();
  if (kind == FileKind::kUnknown && !reading.isWhole) {
    Reading other = asSurface();
    if (other.isWhole || other.understood > reading.understood) reading = std::move(other);
  }
  out << reading.text;
  return reading.isWhole;
}

}  // namespace orvalix

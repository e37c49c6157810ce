/// Any bytes as a chart file: loaded, saved again, now and then drawn, and destroyed.

#include <cstddef>
#include <cstdint>
#include <cstdlib>

#include "orvalix/chart/chart_view_3d.h"
#include "orvalix/foundation/err_3d.h"
#include "orvalix/host/host.h"
#include "support/memory_file.h"

namespace {

constexpr int kSize = 16;
constexpr unsigned kOneOfDrawn = 8;

/// A view that every input is loaded into.
class Target {
 public:
  Target() : m_view(MakeWindow(m_window)) { m_view.Save(m_defaults.Path()); }

  void Use(const std::uint8_t* data, std::size_t size) {
    m_input.Fill(data, size);
    Load();
    m_view.Save(m_output.Path());
    if (Hash(data, size) % kOneOfDrawn == 0) Draw();
    // What an input leaves behind doesn't meet the next one.
    m_view.Load(m_defaults.Path());
  }

 private:
  static CWnd* MakeWindow(CWnd& window) {
    window.CreateOffscreen(kSize, kSize);
    return &window;
  }
  /// FNV-1a: each input is either drawn or not, in every run.
  static unsigned Hash(const std::uint8_t* data, std::size_t size) {
    unsigned hash = 2166136261U;
    for (std::size_t i = 0; i < size; ++i) hash = (hash ^ data[i]) * 16777619U;
    return hash >> 16;
  }
  void Load() {
    try {
      m_view.Load(m_input.Path());
    } catch (const CErr3D& error) {
      const CErr3DTypes type = error.GetErrorType();
      const bool isExpected =
          type == ERR3D_DISK_IO || type == ERR3D_ARRAY_NEW || type == ERR3D_OBJECT_NEW;
      if (!isExpected) std::abort();
    }
  }
  void Draw() {
    try {
      m_view.DrawViewScreen();
    } catch (const CErr3D& error) {
      if (error.GetErrorType() != ERR3D_ARRAY_NEW && error.GetErrorType() != ERR3D_OBJECT_NEW) {
        std::abort();
      }
    }
  }

  orvalix::test::MemoryFile m_input;
  orvalix::test::MemoryFile m_output;
  orvalix::test::MemoryFile m_defaults;
  CWnd m_window;
  CChartView3D m_view;
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  CErr3D::nErrorReportMode = 0;
  static Target target;
  target.Use(data, size);
  return 0;
}

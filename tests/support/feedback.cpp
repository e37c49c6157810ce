#include "support/feedback.h"

#include <GL/gl.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <iomanip>
#include <iterator>
#include <sstream>
#include <utility>

namespace orvalix::test {
namespace {

// GL_4D_COLOR_TEXTURE: x y z w, red green blue alpha, s t r q.
constexpr std::size_t kFloatsPerVertex = 12;
constexpr std::size_t kBufferFloats = std::size_t{1} << 23;

class FeedbackReader {
 public:
  explicit FeedbackReader(const std::vector<GLfloat>& buffer, std::size_t count)
      : m_buffer(buffer), m_count(count) {}

  std::vector<FeedbackPrimitive> Read() {
    std::vector<FeedbackPrimitive> primitives;
    while (m_at < m_count) {
      switch (static_cast<int>(Next())) {
        case GL_POINT_TOKEN:
          primitives.push_back({FeedbackPrimitive::Kind::kPoint, Vertices(1)});
          break;
        case GL_LINE_TOKEN:
        case GL_LINE_RESET_TOKEN:
          primitives.push_back({FeedbackPrimitive::Kind::kLine, Vertices(2)});
          break;
        case GL_POLYGON_TOKEN: {
          const auto count = static_cast<std::size_t>(Next());
          primitives.push_back({FeedbackPrimitive::Kind::kPolygon, Vertices(count)});
          break;
        }
        case GL_PASS_THROUGH_TOKEN:
          Next();
          break;
        default:
          ADD_FAILURE() << "unknown feedback token at " << m_at - 1;
          return primitives;
      }
    }
    return primitives;
  }

 private:
  double Next() { return m_at < m_count ? static_cast<double>(m_buffer[m_at++]) : 0.0; }

  std::vector<FeedbackVertex> Vertices(std::size_t count) {
    std::vector<FeedbackVertex> vertices;
    for (std::size_t i = 0; i < count && m_at + kFloatsPerVertex <= m_count; ++i) {
      FeedbackVertex vertex{};
      vertex.x = Next();
      vertex.y = Next();
      vertex.z = Next();
      Next();
      vertex.red = Next();
      vertex.green = Next();
      vertex.blue = Next();
      vertex.alpha = Next();
      vertex.t = Next();
      vertex.t2 = Next();
      m_at += 2;
      vertices.push_back(vertex);
    }
    return vertices;
  }

  const std::vector<GLfloat>& m_buffer;
  std::size_t m_count;
  std::size_t m_at = 0;
};

bool SamePixel(const FeedbackVertex& a, const FeedbackVertex& b) {
  return a.x == b.x && a.y == b.y;
}

/// A depth that isn't known equals every other one.
bool SamePlace(const FeedbackVertex& a, const FeedbackVertex& b) {
  return SamePixel(a, b) && (a.z == b.z || std::isnan(a.z) || std::isnan(b.z));
}

/// Outlined areas are set back a little, triangle by triangle. That belongs to the pixels: where
/// vertices were placed is told without it.
class WithoutPolygonOffset {
 public:
  WithoutPolygonOffset() {
    glGetFloatv(GL_POLYGON_OFFSET_FACTOR, &m_factor);
    glGetFloatv(GL_POLYGON_OFFSET_UNITS, &m_units);
    glPolygonOffset(0.0F, 0.0F);
  }
  ~WithoutPolygonOffset() { glPolygonOffset(m_factor, m_units); }
  WithoutPolygonOffset(const WithoutPolygonOffset&) = delete;
  WithoutPolygonOffset& operator=(const WithoutPolygonOffset&) = delete;

 private:
  GLfloat m_factor = 0.0F;
  GLfloat m_units = 0.0F;
};

/// The software rasteriser reports a polygon of vertices 0, 1, 2, 3 as the triangles (1, 2, 0) and
/// (2, 3, 0). This puts them together again; polygons reported whole stay as they are.
class PolygonMerger {
 public:
  void Add(FeedbackPrimitive primitive, std::vector<FeedbackPrimitive>& out) {
    const bool isTriangle =
        primitive.kind == FeedbackPrimitive::Kind::kPolygon && primitive.vertices.size() == 3;
    if (isTriangle) {
      std::rotate(primitive.vertices.begin(), primitive.vertices.begin() + 2,
                  primitive.vertices.end());
      ForgetDepthWithoutArea(primitive.vertices);
      if (m_inFan && Continues(out.back().vertices, primitive.vertices)) {
        out.back().vertices.push_back(primitive.vertices.back());
        LearnDepth(out.back().vertices, primitive.vertices);
        return;
      }
    }
    m_inFan = isTriangle;
    out.push_back(std::move(primitive));
  }

 private:
  /// The slope of a triangle without an area isn't defined, and with it the depth of an outlined
  /// one is lost: it reads 0.
  static void ForgetDepthWithoutArea(std::vector<FeedbackVertex>& triangle) {
    if (!SamePixel(triangle[0], triangle[1]) && !SamePixel(triangle[1], triangle[2]) &&
        !SamePixel(triangle[2], triangle[0])) {
      return;
    }
    const bool isLost = std::all_of(triangle.begin(), triangle.end(),
                                    [](const FeedbackVertex& vertex) { return vertex.z == 0.0; });
    if (!isLost) return;
    for (FeedbackVertex& vertex : triangle) vertex.z = std::nan("");
  }

  /// Vertices of one pixel take the depth that any of them has.
  static void LearnDepth(std::vector<FeedbackVertex>& polygon,
                         const std::vector<FeedbackVertex>& triangle) {
    for (FeedbackVertex& vertex : polygon) {
      for (const FeedbackVertex& known : triangle) {
        if (std::isnan(vertex.z) && SamePixel(vertex, known)) vertex.z = known.z;
      }
      for (const FeedbackVertex& known : polygon) {
        if (std::isnan(vertex.z) && SamePixel(vertex, known)) vertex.z = known.z;
      }
    }
  }

  static bool Continues(const std::vector<FeedbackVertex>& polygon,
                        const std::vector<FeedbackVertex>& triangle) {
    return !IsClosed(polygon) && SamePlace(polygon.front(), triangle[0]) &&
           SamePlace(polygon.back(), triangle[1]);
  }

  /// Solids repeat the first vertex of a face at its end. Faces that have shrunk, as at an apex,
  /// may come back to it earlier, so that only the fifth vertex tells.
  static bool IsClosed(const std::vector<FeedbackVertex>& polygon) {
    constexpr std::size_t kVerticesOfAFace = 5;
    return polygon.size() >= kVerticesOfAFace && SamePlace(polygon.front(), polygon.back());
  }

  bool m_inFan = false;  ///< the last primitive is made of triangles
};

/// A number without the sign of a zero, so that texts don't depend on how it came about.
double Plain(double value, double unit) {
  const double rounded = std::round(value / unit) * unit;
  return rounded == 0.0 ? 0.0 : rounded;
}

}  // namespace

std::vector<FeedbackPrimitive> CaptureTriangles(const std::function<void()>& draw) {
  static std::vector<GLfloat> buffer(kBufferFloats);
  const WithoutPolygonOffset placedExactly;
  glFeedbackBuffer(static_cast<GLsizei>(buffer.size()), GL_4D_COLOR_TEXTURE, buffer.data());
  glRenderMode(GL_FEEDBACK);
  draw();
  const GLint count = glRenderMode(GL_RENDER);
  EXPECT_GE(count, 0) << "the feedback buffer is too small";
  return FeedbackReader(buffer, static_cast<std::size_t>(std::max(count, 0))).Read();
}

std::vector<FeedbackPrimitive> CaptureFeedback(const std::function<void()>& draw) {
  std::vector<FeedbackPrimitive> merged;
  PolygonMerger merger;
  for (FeedbackPrimitive& primitive : CaptureTriangles(draw)) {
    merger.Add(std::move(primitive), merged);
  }
  return merged;
}

std::vector<FeedbackPrimitive> OfKind(const std::vector<FeedbackPrimitive>& primitives,
                                      FeedbackPrimitive::Kind kind) {
  std::vector<FeedbackPrimitive> chosen;
  std::copy_if(primitives.begin(), primitives.end(), std::back_inserter(chosen),
               [kind](const FeedbackPrimitive& primitive) { return primitive.kind == kind; });
  return chosen;
}

std::string ToTranscript(const std::vector<FeedbackPrimitive>& primitives) {
  constexpr double kPixelUnit = 0.1;
  constexpr double kFineUnit = 0.001;
  std::ostringstream text;
  text << std::fixed;
  for (const FeedbackPrimitive& primitive : primitives) {
    constexpr const char* kNames[] = {"point", "line", "polygon"};
    text << kNames[static_cast<int>(primitive.kind)];
    if (!primitive.vertices.empty()) {
      const FeedbackVertex& first = primitive.vertices.front();
      text << std::setprecision(3) << " " << Plain(first.red, kFineUnit) << " "
           << Plain(first.green, kFineUnit) << " " << Plain(first.blue, kFineUnit);
    }
    for (const FeedbackVertex& vertex : primitive.vertices) {
      text << std::setprecision(1) << " (" << Plain(vertex.x, kPixelUnit) << " "
           << Plain(vertex.y, kPixelUnit) << std::setprecision(3) << " "
           << Plain(vertex.z, kFineUnit) << ")";
    }
    text << "\n";
  }
  return text.str();
}

}  // namespace orvalix::test

/// Outlines on Linux: fontconfig finds the face, FreeType reads it.

#include <fontconfig/fontconfig.h>
#include <ft2build.h>

#include <algorithm>
#include <memory>
#include <new>

#include "orvalix/render/code_page_internal.h"
#include "orvalix/render/outline_face_internal.h"
#include FT_FREETYPE_H
#include FT_BBOX_H
#include FT_OUTLINE_H

namespace orvalix {
namespace {

template <auto Function>
struct Delete {
  template <class T>
  void operator()(T* object) const {
    Function(object);
  }
};

using Pattern = std::unique_ptr<FcPattern, Delete<FcPatternDestroy>>;
using Library = std::unique_ptr<std::remove_pointer_t<FT_Library>, Delete<FT_Done_FreeType>>;
using Face = std::unique_ptr<std::remove_pointer_t<FT_Face>, Delete<FT_Done_Face>>;

constexpr int kNormalWeight = 400;
constexpr int kLightest = 1;
constexpr int kHeaviest = 1000;
/// Added to the stroke of a face that has no bold version, in em.
constexpr double kEmboldening = 1.0 / 24.0;
/// Where a face doesn't say how it is underlined, in em.
constexpr double kUnderlineTop = -0.075;
constexpr double kUnderlineThickness = 0.05;

/// What fontconfig answers.
struct FoundFace {
  std::string file;
  int index = 0;
  bool embolden = false;                ///< the face isn't as heavy as was asked for
  FcMatrix matrix{1.0, 0.0, 0.0, 1.0};  ///< slants a face that has no italic
};

/// @return an empty file name when there is no face with outlines
FoundFace FindFace(const FaceRequest& request) {
  const Pattern wanted(FcPatternCreate());
  if (!wanted) throw std::bad_alloc();
  const std::string name = ToUtf8(request.name);
  const int weight = request.weight == 0 ? kNormalWeight : request.weight;
  FcPatternAddString(wanted.get(), FC_FAMILY, reinterpret_cast<const FcChar8*>(name.c_str()));
  FcPatternAddInteger(wanted.get(), FC_WEIGHT,
                      FcWeightFromOpenType(std::clamp(weight, kLightest, kHeaviest)));
  FcPatternAddInteger(wanted.get(), FC_SLANT, request.italic ? FC_SLANT_ITALIC : FC_SLANT_ROMAN);
  FcPatternAddBool(wanted.get(), FC_OUTLINE, FcTrue);
  FcPatternAddBool(wanted.get(), FC_SCALABLE, FcTrue);
  FcConfigSubstitute(nullptr, wanted.get(), FcMatchPattern);
  FcDefaultSubstitute(wanted.get());

  FcResult result = FcResultNoMatch;
  const Pattern found(FcFontMatch(nullptr, wanted.get(), &result));
  FoundFace face;
  FcChar8* file = nullptr;
  if (!found || FcPatternGetString(found.get(), FC_FILE, 0, &file) != FcResultMatch) return face;
  face.file = reinterpret_cast<const char*>(file);
  FcPatternGetInteger(found.get(), FC_INDEX, 0, &face.index);
  FcBool embolden = FcFalse;
  FcPatternGetBool(found.get(), FC_EMBOLDEN, 0, &embolden);
  face.embolden = embolden == FcTrue;
  FcMatrix* matrix = nullptr;
  if (FcPatternGetMatrix(found.get(), FC_MATRIX, 0, &matrix) == FcResultMatch) {
    face.matrix = *matrix;
  }
  return face;
}

/// An open face whose outlines are read in units of its own grid.
class OpenFace {
 public:
  explicit OpenFace(const FoundFace& found) : m_found(found) {
    FT_Library library = nullptr;
    if (found.file.empty() || FT_Init_FreeType(&library) != 0) return;
    m_library.reset(library);
    FT_Face face = nullptr;
    if (FT_New_Face(library, found.file.c_str(), found.index, &face) != 0) return;
    m_face.reset(face);
    if (FT_IS_SCALABLE(face) == 0 || face->units_per_EM == 0) m_face.reset();
  }

  explicit operator bool() const { return m_face != nullptr; }

  double UnitsPerEm() const { return m_face->units_per_EM; }

  /// The character's outline; empty when the face can't be read there.
  Glyph Load(char32_t character, double deviation) {
    Glyph glyph;
    if (FT_Load_Char(m_face.get(), character, FT_LOAD_NO_SCALE | FT_LOAD_NO_BITMAP) != 0 ||
        m_face->glyph->format != FT_GLYPH_FORMAT_OUTLINE) {
      return glyph;
    }
    FT_Outline& outline = m_face->glyph->outline;
    ApplyStyle(outline);
    glyph.metrics = Measure(outline);
    glyph.contours = Flatten(outline, deviation);
    return glyph;
  }

  /// The bar below a character, as wide as its cell.
  GlyphContour Underline(double width) const {
    double top = kUnderlineTop;
    double thickness = kUnderlineThickness;
    if (m_face->underline_thickness > 0) {
      thickness = m_face->underline_thickness / UnitsPerEm();
      // The face tells where the middle of the bar lies.
      top = m_face->underline_position / UnitsPerEm() + thickness / 2.0;
    }
    return {{0.0, top - thickness}, {width, top - thickness}, {width, top}, {0.0, top}};
  }

 private:
  void ApplyStyle(FT_Outline& outline) const {
    if (m_found.embolden) {
      FT_Outline_Embolden(&outline, static_cast<FT_Pos>(kEmboldening * UnitsPerEm()));
    }
    constexpr double kFixedOne = 0x10000;
    const FT_Matrix matrix{static_cast<FT_Fixed>(m_found.matrix.xx * kFixedOne),
                           static_cast<FT_Fixed>(m_found.matrix.xy * kFixedOne),
                           static_cast<FT_Fixed>(m_found.matrix.yx * kFixedOne),
                           static_cast<FT_Fixed>(m_found.matrix.yy * kFixedOne)};
    FT_Outline_Transform(&outline, &matrix);
  }

  GLYPHMETRICSFLOAT Measure(FT_Outline& outline) const {
    const auto toEm = [this](FT_Pos units) {
      return static_cast<float>(static_cast<double>(units) / UnitsPerEm());
    };
    GLYPHMETRICSFLOAT metrics{};
    const FT_Pos bolder = m_found.embolden ? static_cast<FT_Pos>(kEmboldening * UnitsPerEm()) : 0;
    metrics.gmfCellIncX = toEm(m_face->glyph->metrics.horiAdvance + bolder);
    FT_BBox box{};
    if (outline.n_points == 0 || FT_Outline_Get_BBox(&outline, &box) != 0) return metrics;
    metrics.gmfBlackBoxX = toEm(box.xMax - box.xMin);
    metrics.gmfBlackBoxY = toEm(box.yMax - box.yMin);
    metrics.gmfptGlyphOrigin = {toEm(box.xMin), toEm(box.yMax)};
    return metrics;
  }

  std::vector<GlyphContour> Flatten(FT_Outline& outline, double deviation) const {
    Walk walk{ContourBuilder(deviation), UnitsPerEm()};
    FT_Outline_Funcs functions{};
    functions.move_to = [](const FT_Vector* to, void* data) {
      return Guarded(data, [&](Walk& w) { w.builder.MoveTo(w.ToEm(to)); });
    };
    functions.line_to = [](const FT_Vector* to, void* data) {
      return Guarded(data, [&](Walk& w) { w.builder.LineTo(w.ToEm(to)); });
    };
    functions.conic_to = [](const FT_Vector* control, const FT_Vector* to, void* data) {
      return Guarded(data, [&](Walk& w) { w.builder.ConicTo(w.ToEm(control), w.ToEm(to)); });
    };
    functions.cubic_to = [](const FT_Vector* control1, const FT_Vector* control2,
                            const FT_Vector* to, void* data) {
      return Guarded(data, [&](Walk& w) {
        w.builder.CubicTo(w.ToEm(control1), w.ToEm(control2), w.ToEm(to));
      });
    };
    if (FT_Outline_Decompose(&outline, &functions, &walk) == FT_Err_Out_Of_Memory) {
      throw std::bad_alloc();
    }
    return walk.builder.Take();
  }

  /// What FreeType hands from call to call while it walks an outline.
  struct Walk {
    ContourBuilder builder;
    double unitsPerEm;

    GlyphPoint ToEm(const FT_Vector* position) const {
      return {static_cast<double>(position->x) / unitsPerEm,
              static_cast<double>(position->y) / unitsPerEm};
    }
  };

  /// FreeType calls through C, where no exception may pass.
  template <class Work>
  static int Guarded(void* walk, Work&& work) noexcept {
    try {
      work(*static_cast<Walk*>(walk));
      return FT_Err_Ok;
    } catch (const std::bad_alloc&) {
      return FT_Err_Out_Of_Memory;
    }
  }

  FoundFace m_found;
  Library m_library;
  Face m_face;  ///< closed before its library
};

}  // namespace

std::vector<Glyph> LoadGlyphs(const FaceRequest& request) {
  OpenFace face(FindFace(request));
  if (!face) return {};
  const double deviation = request.deviation > 0.0 ? request.deviation : 1.0 / face.UnitsPerEm();
  std::vector<Glyph> glyphs(static_cast<std::size_t>(std::max(request.count, 0)));
  for (std::size_t code = 0; code < glyphs.size(); ++code) {
    const char32_t character = UnicodeOf(static_cast<unsigned char>(code));
    if (character == 0) continue;
    glyphs[code] = face.Load(character, deviation);
    if (request.underline) {
      const double width = static_cast<double>(glyphs[code].metrics.gmfCellIncX);
      if (width > 0.0) glyphs[code].contours.push_back(face.Underline(width));
    }
  }
  return glyphs;
}

}  // namespace orvalix

#include "orvalix/render/font_glyphs_internal.h"

#include <atomic>
#include <utility>

#include "orvalix/render/gl_api_internal.h"

namespace orvalix {
namespace {

std::uint64_t NextNumber() {
  static std::atomic<std::uint64_t> last{0};
  return ++last;
}

}  // namespace

FontGlyphs::FontGlyphs(std::vector<Glyph> glyphs, double extrusion)
    : m_extrusion(extrusion), m_number(NextNumber()) {
  m_characters.reserve(glyphs.size());
  for (Glyph& glyph : glyphs) m_characters.push_back({std::move(glyph), {}, {}, false});
}

const GlyphSolid& FontGlyphs::Solid(std::size_t code) {
  Character& character = m_characters[code];
  if (!character.solid) character.solid = FillGlyph(character.outline);
  return *character.solid;
}

void FontGlyphs::FillAll() {
  for (std::size_t code = 0; code < Count(); ++code) Solid(code);
}

const GlyphMesh& FontGlyphs::Mesh(std::size_t code) {
  Character& character = m_characters[code];
  if (!character.mesh) character.mesh = MeshOfGlyph(Solid(code), m_extrusion);
  return *character.mesh;
}

void FontGlyphs::Send(std::size_t code) {
  SendGlyphSolid(Solid(code), m_extrusion);
  const GLYPHMETRICSFLOAT& metrics = Metrics(code);
  glTranslatef(metrics.gmfCellIncX, metrics.gmfCellIncY, 0.0F);
}

void FontGlyphs::CompileList(std::size_t code, unsigned list) {
  if (HasList(code)) return;
  Solid(code);  // nothing fails while OpenGL compiles
  glNewList(list, GL_COMPILE);
  Send(code);
  glEndList();
  m_characters[code].hasList = true;
}

}  // namespace orvalix

/// @file
/// The characters of a registered font.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

#include "orvalix/render/glyph_internal.h"
#include "orvalix/render/glyph_mesh_internal.h"
#include "orvalix/render/glyph_solid_internal.h"

namespace orvalix {

/// Outlines of characters; each is filled when it is first drawn, for texts use few of them.
class FontGlyphs {
 public:
  FontGlyphs(std::vector<Glyph> glyphs, double extrusion);

  std::size_t Count() const { return m_characters.size(); }
  const GLYPHMETRICSFLOAT& Metrics(std::size_t code) const {
    return m_characters[code].outline.metrics;
  }
  /// Tells these characters from those of any other registration.
  std::uint64_t Number() const { return m_number; }
  /// Makes what Send() and CompileList() need of every character.
  /// @throws std::bad_alloc
  void FillAll();
  /// It stays where it is.
  /// @throws std::bad_alloc
  const GlyphMesh& Mesh(std::size_t code);
  /// Draws a character and moves on to the next one's place, with OpenGL's operations alone.
  /// @throws std::bad_alloc
  void Send(std::size_t code);
  /// Makes what Send() draws a display list, unless it has one already. None may be being compiled.
  /// @throws std::bad_alloc
  void CompileList(std::size_t code, unsigned list);
  bool HasList(std::size_t code) const { return m_characters[code].hasList; }

 private:
  struct Character {
    Glyph outline;
    std::optional<GlyphSolid> solid;
    std::optional<GlyphMesh> mesh;
    bool hasList = false;
  };

  const GlyphSolid& Solid(std::size_t code);

  std::vector<Character> m_characters;
  double m_extrusion;
  std::uint64_t m_number;
};

}  // namespace orvalix

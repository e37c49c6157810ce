/// @file
/// An outline font whose characters are OpenGL display lists.
#pragma once

#include <array>
#include <memory>

#include "orvalix/foundation/value_types.h"
#include "orvalix/host/host.h"

class COpenGL;

namespace orvalix {
class FontGlyphs;
}  // namespace orvalix

/// One outline font of a rendering context: its description, its measures and the names of its
/// display lists, one per character code.
class ORVALIX_API CFont3D {
 public:
  /// Defaults only.
  CFont3D();
  /// Defaults, then InitFont().
  CFont3D(COpenGL* context, CDC* deviceContext, int listBase);
  ~CFont3D();
  CFont3D(const CFont3D&) = delete;
  CFont3D& operator=(const CFont3D&) = delete;

  /// Sets every field to its default.
  void InitFontDefaults();
  /// Binds the font.
  /// @param context rendering context of the display lists; not owned
  /// @param deviceContext device context that fonts are made for; not owned
  /// @param listBase name of the display list of character 0
  /// @throws CErr3D class 13, "InitFont": type 14 for a null device context or one without a
  ///   handle, type 16 for something that is no live rendering context
  void InitFont(COpenGL* context, CDC* deviceContext, int listBase);

  /// Builds the display lists of the first characters of a face: each draws its character,
  /// extruded away from z = 0, and moves on to the next one's place. Lengths are in em. What was
  /// built before is dropped. The font's context is current afterwards, and the lists live as long
  /// as it does.
  ///
  /// When no face is installed, or there is no context, the request is noted but scale factor, face
  /// name and lists stay as they were; charts are then drawn without text.
  /// @param face family; the nearest installed one is taken
  /// @param scale font scale factor: from em to normalised units
  /// @param weight 400 is normal, 700 bold
  /// @param italic, underline nonzero: slanted; a bar below each character
  /// @param numChars character codes, from 0, of Windows Latin-1; at most 256 are built
  /// @return nonzero on success; 0 also when numChars or the list base is below 1, or
  ///   memory runs out
  int RegisterFont(CString const& face, double scale, int weight, int italic, int underline,
                   int numChars);
  /// The same without underline.
  int RegisterFont(CString const& face, double scale, int weight, int italic, int numChars);

  /// Depth in em of the characters behind their front face; 0 or below: none. Default 0.01.
  /// RegisterFont() heeds it.
  void SetFontExtrusion(double extrusion);
  double GetFontExtrusion() const;
  /// Largest distance between a curve and the lines that stand for it, in units of which an em has
  /// 28; 0 or below: as fine as the face's own grid. Default 0.1. RegisterFont() heeds it.
  void SetFontRendering(double deviation);
  double GetFontRendering() const;
  /// Factor from em to reported and drawn sizes. Default 0.05.
  void SetFontScaleFactor(double factor);
  double GetFontScaleFactor() const;
  /// Number of character codes, from 0, that have display lists. Default 128.
  void SetNumFontChars(int count);
  int GetNumFontChars() const;
  /// @name Measures of a text in normalised units
  /// Its bytes are character codes; those at or above GetNumFontChars() count as nothing.
  /// @{

  /// The sum of the characters' cell widths.
  double TextWidth3D(CString const& text) const;
  /// The height of the highest black box; what lies below the base line counts too.
  double TextHeight3D(CString const& text) const;
  /// The root of width squared plus height squared.
  double TextDiagonal3D(CString const& text) const;
  /// Addition: the measures of a character in em; all 0 for one that has none.
  GLYPHMETRICSFLOAT GetGlyphMetrics(int code) const;
  /// @}

  /// Addition: draws a text from the origin of the current matrix along x, in em. Only what faces
  /// the viewer is drawn. The matrix then stands behind the last character.
  void DrawText3D(CString const& text) const;

  /// Addition: name of the display list of character 0. The characters of a view's font get their
  /// display lists when they are asked for, here, or drawn one by one; its context is current
  /// afterwards. Lists can't be made while another one is being compiled.
  /// @throws CErr3D type 3, class 13, "GetListBase", when memory runs out
  int GetListBase() const;
  /// Addition: the face last registered. Default "Arial".
  CString GetFaceName() const;
  /// Addition: 1111 in a live object.
  int GetClassTag() const;

  /// Writes the font's record to an open file. Null does nothing.
  /// @throws CErr3D type 7, class 13, "Save"
  void Save(void* file) const;
  /// Reads the font's record from an open file; RegisterFont() then builds its characters. Null
  /// does nothing.
  /// @throws CErr3D type 7, class 13, "Load"
  void Load(void* file);

  static int nSelfID;  ///< number of fonts made so far

 private:
  template <class Record, class Self>
  static void RecordFields(Record& record, Self& self);

  friend class COpenGL;
  friend class CTextObj3D;

  enum class Lists { kAtOnce, kWhenAskedFor };
  int Register(CString const& face, double scale, int weight, int italic, int underline,
               int numChars, Lists lists);
  void DescribeFont(CString const& face);
  void TakeGlyphs(std::unique_ptr<orvalix::FontGlyphs> glyphs);
  /// True when the list base stands for the registered characters; lists that were built elsewhere
  /// are OpenGL's alone.
  bool KnowsCharacters() const;
  /// @throws std::bad_alloc
  void CompileLists() const;
  /// Makes the display lists that a text lacks. @return false when it still lacks some
  bool HasListsFor(CString const& text) const;
  unsigned ListOf(std::size_t code) const;
  void GatherText(CString const& text) const;
  void SendText(CString const& text) const;
  const GLYPHMETRICSFLOAT& MetricsOf(char character) const;

  COpenGL* m_context;                             ///< not owned
  std::array<GLYPHMETRICSFLOAT, 256> m_metrics;   ///< by character code, in em
  CDC* m_deviceContext;                           ///< not owned
  LOGFONTA m_description;                         ///< what the platform is asked for
  int m_spare;                                    ///< stored and persisted only
  int m_listBase;                                 ///< display list of character 0
  int m_builtListBase;                            ///< the same when characters were registered
  std::unique_ptr<orvalix::FontGlyphs> m_glyphs;  ///< as registered; null: none
  int m_italic;                                   ///< last italic request
  int m_underline;                                ///< last underline request
  int m_weight;                                   ///< last weight request
  int m_numChars;                                 ///< character codes that have display lists
  double m_extrusion;                             ///< depth of the characters
  double m_rendering;                             ///< chordal deviation of flattened curves
  double m_spareFactor;                           ///< stored and persisted only
  double m_scaleFactor;                           ///< from glyph units to reported sizes
  double m_requestedSize;                         ///< scale of the last RegisterFont()
  CString m_faceName;
  int m_classTag;  ///< 1111 marks a live object
};

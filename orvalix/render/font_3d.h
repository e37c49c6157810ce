/// @file
/// An outline font whose characters are OpenGL display lists.
#pragma once

#include <array>

#include "orvalix/host/host.h"

class COpenGL;

/// One outline font of a rendering context: its description, its measures and the names of its
/// display lists, one per character code.
class ORVALIX_API CFont3D {
 public:
  /// Defaults only.
  CFont3D();
  /// Defaults, then InitFont().
  CFont3D(COpenGL* context, CDC* deviceContext, int listBase);
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

  /// Builds the display lists of the first `numChars` characters of a face.
  ///
  /// No face is opened yet: the request is recorded, scale factor and face name stay as they were,
  /// and the result is 0, as on a machine without fonts. Charts are drawn without text.
  /// @return nonzero on success
  int RegisterFont(CString const& face, double scale, int weight, int italic, int underline,
                   int numChars);
  /// The same without underline.
  int RegisterFont(CString const& face, double scale, int weight, int italic, int numChars);

  /// Depth of the characters behind their front face. Default 0.01 em.
  void SetFontExtrusion(double extrusion);
  double GetFontExtrusion() const;
  /// Largest distance between a curve and the lines that stand for it. Default 0.1.
  void SetFontRendering(double deviation);
  double GetFontRendering() const;
  /// Factor from glyph units to reported sizes. Default 0.05.
  void SetFontScaleFactor(double factor);
  double GetFontScaleFactor() const;
  /// Number of character codes, from 0, that have display lists. Default 128.
  void SetNumFontChars(int count);
  int GetNumFontChars() const;
  /// Addition: name of the display list of character 0.
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

  COpenGL* m_context;                            ///< not owned
  std::array<GLYPHMETRICSFLOAT, 256> m_metrics;  ///< by character code, in em
  CDC* m_deviceContext;                          ///< not owned
  LOGFONTA m_description;                        ///< what the platform is asked for
  int m_spare;                                   ///< stored and persisted only
  int m_listBase;                                ///< display list of character 0
  int m_italic;                                  ///< last italic request
  int m_underline;                               ///< last underline request
  int m_weight;                                  ///< last weight request
  int m_numChars;                                ///< character codes that have display lists
  double m_extrusion;                            ///< depth of the characters
  double m_rendering;                            ///< chordal deviation of flattened curves
  double m_spareFactor;                          ///< stored and persisted only
  double m_scaleFactor;                          ///< from glyph units to reported sizes
  double m_requestedSize;                        ///< scale of the last RegisterFont()
  CString m_faceName;
  int m_classTag;  ///< 1111 marks a live object
};

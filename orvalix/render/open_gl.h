/// @file
/// The rendering context: one OpenGL context bound to an off-screen bitmap, the drawing state that
/// everything drawn through it shares, and the drawing operations.
#pragma once

#include <array>
#include <memory>
#include <vector>

#include "orvalix/foundation/object_list.h"
#include "orvalix/foundation/value_types.h"
#include "orvalix/host/host.h"
#include "orvalix/render/palette_rules.h"

class CDIBSection;
class CFont3D;
class CTextObj3D;
class CTransform3D;

namespace orvalix {
class BufferPool;
class DrawList;
class DrawRecorder;
class FontGlyphs;
struct RecordedFill;
struct RecordedStroke;
class GLBinding;
class KeptDrawing;
class KeptTexts;
}  // namespace orvalix

/// Selector of the global ambient light in the light operations. It is this library's own and no
/// OpenGL name; programs use it, so its value is fixed.
inline constexpr int LIGHT3D_MODEL_AMBIENT = 12345;

/// Draws into the off-screen bitmap of a chart view with fixed-function OpenGL.
///
/// The view creates one context and destroys it with itself. All coordinates of the drawing
/// operations are in the space of the current matrix: after CTransform3D::ChartTransform() these
/// are working coordinates, in which a logarithmic axis is replaced by its base-10 logarithm. No
/// operation transforms points itself.
///
/// The projection is the identity: x runs to the right and y up from -1 to +1, and *smaller* z is
/// nearer to the viewer. A point with a coordinate that is not a finite `float` can't be placed:
/// a polygon or a solid that has one is left out, a line is interrupted there.
///
/// An OpenGL context is current on one thread at a time. A frame calls MakeCurrent() first, and
/// UpdateBitmap() at its end sees to it again; no drawing operation between them does, so that
/// consecutive calls cost nothing extra.
class ORVALIX_API COpenGL {
 public:
  /// @name Life
  /// @{

  /// Binds a new OpenGL context to `dib`, which must outlive this object with its device context,
  /// sets every default and makes font 0. The new context is current afterwards.
  /// @param windowDC device context whose colour depth the pixel format follows; used only here
  /// @param dib the bitmap drawn into
  /// @throws CErr3D type 18, class 17, "InitContext" when there is no device context, no bitmap or
  ///   no OpenGL that can draw into a bitmap of that size; type 3 when memory runs out, class 17,
  ///   "InitContext" or "NewFont3D"; CDIBSection::CreateRGBPalette()'s
  COpenGL(CDC* windowDC, CDIBSection* dib);
  /// Destroys the context with its fonts. The bitmap stays.
  ~COpenGL();
  COpenGL(const COpenGL&) = delete;
  COpenGL& operator=(const COpenGL&) = delete;

  /// Sets all drawing state to its defaults without telling OpenGL.
  void SetOpenGLDefaults();
  /// Fills the tables from which 8-bit palettes are made.
  void InitPaletteConstants();
  /// Chooses the pixel format, makes the bitmap's palette, creates the context, makes it current
  /// and sets depth test, projection, normalisation and colour material up.
  /// @throws CErr3D class 17, "InitContext": type 18 when OpenGL can't draw into the bitmap, type 3
  ///   when memory runs out; CDIBSection::CreateRGBPalette()'s
  void InitContext();
  /// Chooses and sets the pixel format of the bitmap's device context: RGBA, drawing to a bitmap,
  /// the window's colour depth, 32 bits of depth, no alpha. A context that is there stays as it is.
  /// @return nonzero when OpenGL can draw into the bitmap with that format
  /// @throws CErr3D type 3, class 17, "InitContext", when memory runs out
  int bSetupPixelFormat();
  /// Makes this context current on the calling thread. When it can't be, because it was closed or
  /// is current on another thread, none is current afterwards, and drawing does nothing.
  void MakeCurrent();
  /// Leaves the calling thread without a current context.
  void MakeNonCurrent();
  /// Exchanges the buffers of the current target. A bitmap has a single one: what was drawn so
  /// far is sent to it, as by UpdateBitmap().
  void ExchangeBuffers();
  /// Deletes the OpenGL context and gives the bitmap's device context the default palette back.
  /// Nothing can be drawn afterwards, and no context is current. Closing again does nothing.
  void Close();
  /// Addition: sends everything drawn so far to OpenGL (`glFlush`).
  void Flush();
  /// Addition: whether charts gather what they draw into few calls and keep it from frame to frame
  /// (nonzero, default), or send every polygon and line on its own (0), as they also do while
  /// OpenGL is in feedback or selection mode. The pictures are the same but for single pixels at
  /// edges.
  void SetGathering(int flag);
  int GetGathering() const;
  /// Addition: draws what has been gathered of the object that is being drawn, and sends the rest
  /// of it one by one. Whoever calls OpenGL himself between this class's drawing operations while a
  /// chart object is being drawn calls this first.
  /// @throws CErr3D type 3, class 17, "SendGathered", when memory runs out
  void SendGathered();
  /// Addition: finishes a frame: waits until everything is drawn and brings the pixels of the last
  /// viewport into the bitmap's memory, where whoever reads the bitmap sees them. Makes this
  /// context current; does nothing without it or after the bitmap was deleted.
  /// @param width, height size in pixels of the drawn rectangle at the bitmap's bottom left
  ///   corner; what lies outside the bitmap is left out
  void UpdateBitmap(int width, int height);
  /// Addition: 1717 in a live object.
  int GetClassTag() const;
  /// @}

  /// @name Palette of 8-bit bitmaps
  /// @{

  /// Makes the palette of the current pixel format, selects it into the bitmap's device context
  /// and realises it. Does nothing for a format that needs no palette.
  /// @throws CErr3D type 2, class 17, "CreateRGBPalette"
  void CreateRGBPalette();
  /// Fills `palette` (room for `count` entries) by the colour layout of `format`. Creates nothing.
  void CreateLogPalette(PIXELFORMATDESCRIPTOR* format, LOGPALETTE* palette, int count);
  /// Intensity (0 to 255) of the colour component that `index` holds in `bits` bits (1, 2 or 3;
  /// any other number gives 0) above bit `shift`.
  unsigned char ComponentFromIndex(int index, unsigned bits, unsigned shift) const;
  /// @}

  /// @name Target
  /// @{

  /// Clears the buffers of `mask` (OpenGL's bits: 0x4000 colour, 0x0100 depth) in the viewport.
  void Clear(int mask);
  /// Sets the colour that Clear() fills with. The alpha is not used: it is always 0.
  void SetClearColor(double r, double g, double b, double alpha);
  /// Confines drawing and clearing to a rectangle of the bitmap, in pixels from its bottom left
  /// corner. A negative width or height draws nothing.
  void SetViewport(GLViewportType const& viewport);
  /// Addition: magnifies what is drawn from now on, across and upwards but not in depth, so that
  /// nothing comes too near: (x, y), in the viewport's coordinates of -1 to 1, is drawn in its
  /// middle. Factor 1 about (0, 0), the default, stands for every factor that isn't positive and
  /// for numbers that aren't finite. A projection that the program has set holds, too.
  void SetMagnification(double factor, double x, double y);
  /// Reads the rectangle in force back from OpenGL.
  void GetViewport(GLViewportType& viewport) const;
  /// Stores a rectangle for the owner's use; drawing doesn't consult it.
  void SetOutputViewport(GLViewportType const& viewport);
  void GetOutputViewport(GLViewportType& viewport) const;
  /// @}

  /// @name Light
  /// @{

  /// 0: flat colours (default). Otherwise light 0 shines and the fill colour is the material; 1 is
  /// the usual lit mode, 2 leaves the colour to the texture.
  void SetColorMode(int mode);
  int GetColorMode() const;
  /// Enables an OpenGL capability, such as GL_LIGHT0.
  void EnableLight(int capability);
  /// Stores a light colour: GL_AMBIENT, GL_DIFFUSE or GL_SPECULAR of light 0, or
  /// LIGHT3D_MODEL_AMBIENT. LoadLight() sends it. Any other selector is ignored.
  void SetLightComponent(int which, RGBDType const& color);
  /// A stored light colour; all 0 for an unknown selector.
  RGBDType GetLightComponent(int which) const;
  /// Stores the direction that light 0 comes from, in the chart's frame (z up). It is a
  /// directional light: only the direction counts.
  void SetLightPosition(point3Dtype const& position);
  /// Sends GL_AMBIENT (with the model ambient), GL_DIFFUSE, GL_SPECULAR or GL_POSITION to OpenGL;
  /// a position is turned by the current matrix. Anything else does nothing.
  void LoadLight(int which);
  /// @}

  /// Addition: sets smooth shading, a depth buffer that clears to the farthest, and the depth test.
  void SetupShading();

  /// @name Clip planes
  /// @{

  /// Sets the six clip planes, fixed in the space of the current matrix, to the box from `min` to
  /// `max`, shifted towards larger values by 0.00123456 of its extent.
  /// Kept: an inverted x axis alone decides whether the limits of all three axes are exchanged.
  void SetClipLimits(point3Dtype const& min, point3Dtype const& max);
  /// Switches all six clip planes on (nonzero) or off (0).
  void EnableClipping(int flag);
  /// @}

  /// @name Fill and line style
  /// @{

  /// Sets the three colours: fill, a second one that is only stored, and outline. The fill becomes
  /// the current colour in colour modes 0 and 1.
  void SetFillStyle3D(RGBDType const& fill, RGBDType const& second, RGBDType const& outline);
  /// Sets line style, width in pixels and colour.
  void SetLineStyle3D(int style, double width, RGBDType const& color);
  /// Line style, an index into the stipple table: 0 solid (default), 1 to 10 dotted and dashed,
  /// 11 to 15 solid. Any other number draws solid.
  void SetLineStyle(int style);
  int GetLineStyle() const;
  /// Pixels per bit of the stipple pattern, 1 to 256. Default 1.
  void SetLineStyleFactor(int factor);
  int GetLineStyleFactor() const;
  /// Line width in pixels. Default 1. A width that isn't above 0 leaves the last one in force.
  void SetLineWidth3D(double width);
  double GetLineWidth3D() const;
  /// Colour of lines; the alpha is not used.
  void SetLineColor3D(RGBDType const& color);
  RGBDType GetLineColor3D() const;
  /// Nonzero draws the outline of every filled polygon too. Default 0.
  void SetPolygonOutlineMode(int mode);
  int GetPolygonOutlineMode() const;
  /// Stores a normal for lines, its components made positive when `absolute` is nonzero. Lines
  /// aren't lit: drawing doesn't consult it.
  void SetLineNormal(point3Dtype const& normal, int absolute);
  /// Addition: the normal as stored; all 0 at first.
  point3Dtype GetLineNormal() const;
  /// The unit normal of a plane code: 0 and 3 z, 1 and 4 y, 2 and 5 x.
  void GetAxesPlaneNormal(int plane, point3Dtype& normal) const;
  /// @}

  /// @name Matrices (OpenGL's current matrix)
  /// @{

  /// Puts a copy of the current matrix on OpenGL's stack.
  void PushMatrix();
  /// Goes back to the matrix before the last PushMatrix().
  void PopMatrix();
  /// Loads the matrix that leaves points where they are.
  void LoadIdentity();
  /// Loads 16 values, column by column. Null does nothing.
  void LoadMatrixTransform(const double* matrix);
  /// Addition: reads the model-view matrix back into 16 values, column by column. Null does
  /// nothing.
  void ReadModelViewMatrix(double* matrix);
  /// Addition: makes the model-view matrix the current one.
  void SelectModelView();
  /// Turns by `degrees` about x (axis 0), y (1) or z (2); any other axis does nothing.
  void Rotate3D(double degrees, int axis);
  /// Stretches along each axis.
  void Scale3D(double x, double y, double z);
  /// Moves along each axis.
  void Translate3D(double x, double y, double z);
  /// @}

  /// @name Fonts (owned, in order of creation)
  /// @{

  /// Makes another font, with 256 display lists of its own from 1000 on, and makes it current.
  /// @return the number of fonts
  /// @throws CErr3D type 3, class 17, "NewFont3D"
  int NewFont3D();
  /// CFont3D::RegisterFont of the current font, after making a font when there is none; without
  /// underline in the five-argument form.
  /// @return nonzero on success; 0 also when the current index names no font
  int RegisterFont(CString const& face, double scale, int weight, int italic, int numChars);
  int RegisterFont(CString const& face, double scale, int weight, int italic, int underline,
                   int numChars);
  /// The current font; null when the current index names none.
  CFont3D* GetFont() const;
  /// Index of the current font, from 0.
  int GetCurrentFont() const;
  void SetCurrentFont(int index);
  /// CFont3D's font scale factor of the current font; 0 when there is none.
  double GetFontScaleFactor() const;
  void SetFontScaleFactor(double factor);
  /// @}

  /// @name Lines
  /// Always in flat colours; the colour mode in force before is restored afterwards.
  /// @{

  /// One line in the line colour, style and width.
  void LineAbs3D(point3Dtype const& a, point3Dtype const& b);
  /// A polyline in the line colour, style and width. Nothing else may be drawn between start and
  /// end; SetFillStyle3D() gives the lines to all later points its fill colour. A start ends a line
  /// that is still open; without one, the other two do nothing.
  void StartLineAbs3D(point3Dtype const& point);
  /// The next point of the polyline.
  void AppendLineAbs3D(point3Dtype const& point);
  /// The last point of the polyline.
  void EndLineAbs3D(point3Dtype const& point);
  /// A closed outline through n points, solid, in the line colour.
  void PolyAbs3D(const point3Dtype* points, int n);
  /// An open outline through n points, solid, in the outline colour of SetFillStyle3D(). Repeat
  /// the first point to close it.
  void Frame3D(const point3Dtype* points, int n);
  /// @}

  /// @name Areas
  /// @{

  /// A filled convex polygon in the fill colour, lit by the normal of its first three points, or
  /// coloured by the texture when that is enabled; with its outline when the polygon outline mode
  /// is on (repeat the first point to close the outline). An outlined area lies a little deeper
  /// than its points say, so that it doesn't cover its outline in parts.
  void PolyFillAbs3D(const point3Dtype* points, int n);
  /// A rectangle at z = 0, centred on the origin, that faces up.
  /// @param width, depth extents along x and y
  /// @param unused has no effect
  void DrawSimpleZPlane(double width, double depth, double unused, RGBDType const& fill,
                        RGBDType const& outline);
  /// @}

  /// @name Solids
  /// Each face is one filled polygon, closed, with the outline colour for its outline. Marker
  /// solids are centred on the origin with width w along x, depth d along y, height h along z.
  /// @{

  /// A solid of eight corners: 0 to 3 the bottom, 4 to 7 above them.
  /// @param faceFlags six flags, nonzero draws: 0 -y, 1 -x, 2 +x, 3 bottom, 4 top, 5 +y. Drawn in
  ///   the order 0, 5, 1, 2, 3, 4.
  void DrawSolidObject3D(const point3Dtype* corners, RGBDType const& fill, RGBDType const& outline,
                         const int* faceFlags);
  /// n solids, each standing on the one before: 4(n + 1) points.
  void DrawComplexObject3D(const point3Dtype* points, int n, RGBDType const& fill,
                           RGBDType const& outline);
  /// The box from (x, y, z) to (x + dx, y + dy, z + dz).
  void DrawPrism3D(double x, double y, double z, double dx, double dy, double dz,
                   RGBDType const& fill, RGBDType const& outline);
  /// A cube about the origin.
  void DrawCube(double size, RGBDType const& fill, RGBDType const& outline);
  /// A box about the origin: `w` along x, `d` along y, `h` along z.
  /// @param faceFlags as of DrawSolidObject3D()
  void DrawCubeSolidObject3D(double w, double d, double h, RGBDType const& fill,
                             RGBDType const& outline, const int* faceFlags);
  /// A pyramid with its apex at the top.
  void DrawPyramidSolidObject3D(double w, double d, double h, RGBDType const& fill,
                                RGBDType const& outline);
  /// Two pyramids, base to base.
  void DrawDiamondSolidObject3D(double w, double d, double h, RGBDType const& fill,
                                RGBDType const& outline);
  /// Two frusta that meet in a waist of half the width and depth.
  void DrawHourglassSolidObject3D(double w, double d, double h, RGBDType const& fill,
                                  RGBDType const& outline);
  /// An upright column through a flat slab.
  void DrawPlusSolidObject3D(double w, double d, double h, RGBDType const& fill,
                             RGBDType const& outline);
  /// A shaft below a head that ends in a ridge along y. Kept: it spans z from -h/2 to h/4 only.
  void DrawArrowSolidObject3D(double w, double d, double h, RGBDType const& fill,
                              RGBDType const& outline);
  /// @}

  /// @name Shapes
  /// @{

  /// Draws a shape at the origin of the current matrix: a solid in the fill colour, or a wire shape
  /// in flat line colour and line width. The colour mode is left as it was.
  /// @param type one of CAuxObj3D::AuxObjTypes, which tell the dimensions; others draw nothing
  /// @param solid nonzero: solid; 0: wire
  /// @param size dimensions
  void DrawAuxObject(int type, int solid, point3Dtype const& size);
  /// @}

  /// @name Pictures
  /// @{

  /// Addition: draws a quadrilateral that is covered with a picture, in the picture's own colours
  /// whatever the light, and with the normal (0, 1, 0). Pixels are enlarged without smoothing. All
  /// of OpenGL's state, and with it colouring by value, is left as it was.
  /// @param rgba red, green, blue and alpha for each pixel, the lowest row first, without gaps; the
  ///   colour of what is seen through a picture that isn't opaque is the fill colour
  /// @param width, height pixels, powers of two; a picture larger than OpenGL takes draws nothing
  /// @param corners four: lower left, upper left, upper right, lower right
  /// @param repeatX, repeatY how many times the picture stands side by side and on itself
  void DrawPictureQuad(const unsigned char* rgba, int width, int height, const point3Dtype* corners,
                       int repeatX, int repeatY);
  /// @}

  /// @name Colouring by value
  /// @{

  /// Which number of a vertex chooses its colour while the texture is enabled: 0 x, 1 y, 3 the
  /// carried value v, anything else z. From 0 on it also sets OpenGL's texture parameters; a
  /// negative mode is only stored.
  void SetTextureMode(int mode);
  /// Switches colouring by value on (nonzero) or off (0).
  void EnableTexture(int flag);
  /// Makes the n colours the texture: `min` falls on the first one, and the colours are spread so
  /// that with `min` = 0 the end of the last one falls on `max`. At most 256 are used; n below 1
  /// or null colours do nothing.
  void SetTextureColorArray(const RGBDType* colors, double min, double max, int n);
  /// Makes a texture of 256 entries between two colours that changes every `steps` entries (below
  /// 1: every entry).
  /// Kept: red, green and blue of every entry are then replaced by a grey ramp; only the alpha
  /// values of the two colours remain.
  void SetTextureEndpointColors(RGBDType const& c0, RGBDType const& c1, double min, double max,
                                int steps);
  /// Copies the 256 texture colours out; `out` must have room for them.
  void CopyTextureArray(RGBDType* out) const;
  /// Gives each of n points the value v = (coordinate - offset) * scale, of x (axis 0), y (1) or
  /// z (2); any other axis changes nothing.
  void CopyXYorZtoV(point3Dtype* points, double scale, double offset, int axis, int n) const;
  /// @}

 private:
  void SendColor(RGBDType const& color);
  /// Otherwise areas have the colour of what was drawn before, for textures to cover.
  bool FillsInFillColor() const { return m_colorMode == 0 || m_colorMode == 1; }
  void SendLineWidth();
  unsigned short StippleOf(int style) const;
  void SendStipple(int style);
  void BeginLine();
  void EndLine();
  void SendLinePoint(point3Dtype const& point);
  void FinishLine();
  void BeginOutline(RGBDType const& color);
  void EndOutline();
  void SendVertex(point3Dtype const& point);
  /// @param isBehind as orvalix::PushedBack
  void FillPolygon(const point3Dtype* points, int n, bool isBehind);
  double TextureCoordinate(point3Dtype const& point) const;
  void UploadTexture(int size);

  friend class orvalix::KeptDrawing;
  friend class CChartView3D;
  friend class CFont3D;
  friend class CTextObj3D;
  friend class CTransform3D;
  /// What drawing operations leave behind, and what they start from.
  struct DrawingState {
    RGBDType fillColor;
    RGBDType fillColor2;
    RGBDType outlineColor;
    RGBDType lineColor;
    RGBDType currentColor;
    point3Dtype lineNormal;
    int lineStyle;
    int lineStyleFactor;
    int textureEnabled;
    int polygonOutlineMode;
    int colorMode;
    int savedColorMode;
    int clippingEnabled;
    float lineWidth;
    float sentLineWidth;
    unsigned setSince;                  ///< parts (InheritedState) set since gathering began
    const double* loadedMatrix;         ///< null: the identity
    std::array<double, 16> movedSince;  ///< what the loaded matrix was multiplied by
  };
  /// Gathers what is drawn while it lives, then draws it.
  class Gathering {
   public:
    /// The first text ends it.
    explicit Gathering(COpenGL& context);
    /// Gathers texts too.
    /// @param textMatrix through which they are gathered
    /// @param texts keeps what was gathered
    Gathering(COpenGL& context, const double* textMatrix, orvalix::KeptTexts& texts);
    ~Gathering();
    Gathering(const Gathering&) = delete;
    Gathering& operator=(const Gathering&) = delete;

   private:
    COpenGL& m_context;
  };
  bool IsCurrent() const;
  /// True when OpenGL draws, and doesn't tell what it would draw.
  bool IsRendering() const;
  /// True when OpenGL draws, and isn't to draw one by one.
  bool CanGather() const;
  /// Draws the far sides of solids that are drawn one by one as in gathered drawings.
  class TellingFarSides {
   public:
    explicit TellingFarSides(COpenGL& context);
    ~TellingFarSides();
    TellingFarSides(const TellingFarSides&) = delete;
    TellingFarSides& operator=(const TellingFarSides&) = delete;

   private:
    COpenGL& m_context;
  };
  void TellFarSides();
  void BeginGathering(const double* textMatrix, orvalix::KeptTexts* texts);
  /// True while texts are being gathered.
  bool GathersTexts() const { return m_recorder != nullptr && m_texts != nullptr; }
  /// True while texts are being gathered through that matrix, which is up to date.
  bool GathersTextsThrough(const double* matrix) const {
    return GathersTexts() && matrix == m_textMatrix;
  }
  void EndGathering() noexcept;
  /// @throws std::bad_alloc
  void DrawRecorded(orvalix::DrawRecorder& recorder);
  /// Nothing of what was gathered last could be drawn: memory ran out.
  bool HasFailedToGather() const { return m_hasFailedToGather; }
  /// What was gathered last, with the state after it; null when not all of it could be.
  std::unique_ptr<orvalix::DrawList> TakeGathered(DrawingState& end);
  bool Owns(const orvalix::DrawList& list) const;
  /// Leaves the state that the drawing left, and what it didn't set as it is now.
  void DrawKept(const orvalix::DrawList& list, const DrawingState& end);
  DrawingState WithWhatWasNotSet(DrawingState end) const;
  /// Parts of the state that drawing may find as something else left them.
  enum InheritedState : unsigned {
    kCurrentColor = 1,
    kOutlineColor = 2,
    kLineColor = 4,
    kLineStyle = 8,
    kLineWidth = 16,
    kStoredLineWidth = 32,  ///< whether OpenGL takes it or not
    kSentLineWidth = 64,    ///< the one that OpenGL took last
    kLineNormal = 128
  };
  /// Every number on which what is drawn next depends, whatever it is.
  void AppendDrawingState(std::vector<double>& numbers) const;
  /// Those on which it depends unless they are set before.
  static void AppendInherited(std::vector<double>& numbers, const DrawingState& state,
                              unsigned inherited);
  void Inherit(unsigned parts) { m_inherited |= parts & ~m_setSince; }
  DrawingState GetDrawingState() const;
  /// Makes OpenGL's state that of this object.
  /// @param isClippedAtFirst what clip planes are now
  void RestoreState(const DrawingState& state, int isClippedAtFirst);
  void SetDrawingState(const DrawingState& state);
  /// What follows from the state for a polygon or line that is gathered now.
  void NoteLineWidth();
  orvalix::RecordedFill RecordedFillNow();
  orvalix::RecordedStroke RecordedStrokeNow();
  void RecordPolygon(const point3Dtype* points, int n);
  /// A character in the current colour.
  void RecordGlyph(orvalix::FontGlyphs& font, std::size_t code);
  CFont3D* FontToRegister();
  /// As RegisterFont(), but with display lists only once somebody asks for them.
  int RegisterFontOfView(CString const& face, double scale, int weight, int italic, int underline,
                         int numChars);
  void RecordSolid(const point3Dtype* corners);
  void RecordFrame(const point3Dtype* points, int n);
  void RecordLine(point3Dtype const& a, point3Dtype const& b);
  void StartRecordedLine();
  void RecordLinePoint(point3Dtype const& point);

  RGBDType m_fillColor;     ///< first colour of SetFillStyle3D()
  RGBDType m_fillColor2;    ///< second colour of SetFillStyle3D(): only stored
  RGBDType m_outlineColor;  ///< third colour of SetFillStyle3D()
  RGBDType m_lineColor;
  int m_polygonFillMode;     ///< GL_FILL; not consulted
  int m_lineStyle;           ///< index into m_stipples
  int m_textureMode;         ///< which number of a vertex chooses its colour
  int m_textureEnabled;      ///< 1 while filled polygons are coloured by value
  int m_polygonOutlineMode;  ///< nonzero: filled polygons draw their outline too
  float m_lineWidth;         ///< pixels
  int m_colorMode;           ///< 0 flat, else lit
  int m_savedColorMode;      ///< colour mode to return to after a line or an outline
  point3Dtype m_lineNormal;
  RGBFType m_modelAmbient;  ///< global ambient light
  RGBFType m_lightAmbient;
  RGBFType m_lightDiffuse;
  RGBFType m_lightSpecular;
  std::array<float, 4> m_lightPosition;       ///< in OpenGL's frame; w = 0: directional
  RGBFType m_materialColor1;                  ///< kept for materials
  RGBFType m_materialColor2;                  ///< kept for materials
  std::array<unsigned short, 16> m_stipples;  ///< line patterns by line style
  int m_lineStyleFactor;
  orvalix::PaletteRules m_paletteRules;       ///< tables behind 8-bit palettes
  CPalette m_palette;                         ///< selected into the bitmap's device context
  GLViewportType m_viewport;                  ///< last SetViewport()
  GLViewportType m_outputViewport;            ///< stored only, for the owner's use
  std::array<RGBBType, 256> m_textureColors;  ///< the texture as last built
  double m_textureMinimum;                    ///< value at the start of the texture
  double m_textureMaximum;
  double m_textureScale;  ///< from value to texture coordinate
  orvalix::ObjectList<CFont3D> m_fonts;
  int m_currentFont;                              ///< index into m_fonts
  int m_fontsAtCreation;                          ///< size of m_fonts after the last NewFont3D()
  int m_windowColorBits;                          ///< bits per pixel of the window
  CDC* m_bitmapDC;                                ///< device context of the bitmap; not owned
  CDIBSection* m_dib;                             ///< bitmap drawn into; not owned
  bool m_lineIsOpen;                              ///< between StartLineAbs3D() and EndLineAbs3D()
  int m_classTag;                                 ///< 1717 marks a live object
  std::unique_ptr<orvalix::GLBinding> m_binding;  ///< OpenGL bound to the bitmap
  RGBDType m_currentColor;                        ///< as last sent to OpenGL
  float m_sentLineWidth;                          ///< pixels, as last sent to OpenGL
  int m_clippingEnabled;                          ///< 1 while clip planes are on
  int m_gathering;                                ///< 0: everything is sent to OpenGL one by one
  bool m_tellsFarSides;                  ///< sides of closed solids that look away, from the others
  bool m_isCutAnywhere;                  ///< and their insides may be seen
  bool m_isMagnified;                    ///< by SetMagnification()
  std::array<double, 16> m_unmagnified;  ///< the projection without it
  std::array<double, 16> m_magnified;    ///< and with it
  orvalix::KeptTexts* m_texts;           ///< of what is being gathered; null: without texts
  const double* m_textMatrix;            ///< through which texts are gathered
  unsigned m_setSince;                   ///< parts of the state that were set since gathering began
  unsigned m_inherited;                  ///< parts that were used before
  bool m_hasFailedToGather;              ///< memory ran out, and nothing was drawn
  std::unique_ptr<orvalix::DrawRecorder> m_recorder;  ///< null unless drawing is being gathered
  std::unique_ptr<orvalix::DrawList> m_gathered;      ///< as a whole, until it is taken
  DrawingState m_gatheredEnd;                         ///< the state after it
  std::shared_ptr<orvalix::BufferPool> m_buffers;     ///< of drawings that are kept
};

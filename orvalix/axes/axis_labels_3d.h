/// @file
/// The numbers at the tics of an axis, and its title.
#pragma once

#include <array>
#include <memory>
#include <vector>

#include "orvalix/foundation/object_list.h"
#include "orvalix/foundation/value_types.h"
#include "orvalix/host/host.h"

class CAxis3D;
class COpenGL;
class CTextObj3D;
class CTransform3D;

/// Makes and draws a label beside each major tic of an axis, and a title along the axis beyond the
/// labels. All labels are made anew at every drawing, from the axis and the transform as they are
/// then. An axes frame (CAxes3D) owns three. Labels have 10000 characters together at most, more
/// than any picture shows apart; further ones are left out.
///
/// Nothing is drawn before SetAxisLabels() was called and the labels were bound.
class ORVALIX_API CAxisLabels3D {
 public:
  /// Defaults only.
  /// @throws CErr3D as InitAxisLabelsDefaults()
  CAxisLabels3D();
  /// Defaults, then InitAxisLabels().
  CAxisLabels3D(COpenGL* context, CTransform3D* transform, CAxis3D* axis);
  /// Deletes labels, title and strings.
  ~CAxisLabels3D();
  CAxisLabels3D(const CAxisLabels3D&) = delete;
  CAxisLabels3D& operator=(const CAxisLabels3D&) = delete;

  /// Sets every property to its default, makes an empty title and counts the object.
  /// @throws CErr3D type 3, class 3, "InitAxisLabelsDefaults"
  void InitAxisLabelsDefaults();
  /// Sets the table of automatic justifications to its default.
  void InitLabelJustTable();
  /// Binds the labels; none of the three is owned, and each must outlive the labels' use.
  /// @throws CErr3D class 3, "InitAxisLabels": type 16, 15 or 10 for a context, a transform or an
  ///   axis that is null or no live one; type 17, class 19 when the context has no current font.
  ///   The labels are then bound to nothing
  void InitAxisLabels(COpenGL* context, CTransform3D* transform, CAxis3D* axis);

  /// @name Labels
  /// @{

  /// Sets the properties of these names and copies the strings; from now on there are labels.
  /// @param strings `count` texts for SetAxisLabelsStrings(), or null
  /// @throws CErr3D type 2, class 3, "SetAxisLabels"
  void SetAxisLabels(int plane, int rotation, int direction, int decimals, int ends,
                     RGBDType const& color, const CString* strings, int count);
  /// Copies texts that stand in place of the numbers while they are enabled, in the order in which
  /// labels are made: from the centre upwards, then downwards from it. Labels beyond them are
  /// empty. Null, or a count below 1, removes the texts.
  /// @throws CErr3D type 2, class 3, "SetAxisLabelsStrings"
  void SetAxisLabelsStrings(const CString* strings, int count);
  /// Nonzero puts the strings in place of the numbers, where there are strings. Default 0.
  void EnableAxisLabelsStrings(int flag);
  int GetAxisLabelsStringEnable() const;
  /// The copied texts, owned here; null when there are none.
  CString* GetAxisLabelsStrings();
  /// Number of the copied texts.
  int GetNumAxisLabelsStrings() const;
  /// CTextObj3D::SetTextPlane() of the labels; others than 0 to 3 act as the nearest. Default 3.
  void SetAxisLabelsPlane(int plane);
  int GetAxisLabelsPlane() const;
  /// Direction in which labels are set off from the axis, as CAxis3D::SetAxisTicDir(). Default 0.
  void SetAxisLabelsDir(int direction);
  int GetAxisLabelsDir() const;
  /// Degrees. Default 0.
  void SetAxisLabelsRotation(int degrees);
  int GetAxisLabelsRotation() const;
  /// Digits after the point, or significant digits in format 3; 0 to 100. Default 0.
  void SetAxisLabelsDecimals(int decimals);
  int GetAxisLabelsDecimals() const;
  /// 0: 1234.50 (default), 1: 1.23e+03, 2: 1.23K, 3: as 0 or 1, whatever is shorter. Others act as
  /// 0.
  void SetAxisLabelsFormat(int format);
  int GetAxisLabelsFormat() const;
  /// Which labels at special places are kept: 1 at the minimum, 2 at the centre, 4 at the maximum,
  /// added up. A label at two of these places is kept for either. Default 7.
  void SetAxisLabelsEnds(int bits);
  int GetAxisLabelsEnds() const;
  /// CTextObj3D::SetXJustify() of the labels; -1 (default) chooses by axis, plane and rotation.
  void SetAxisLabelsXJust(int justify);
  int GetAxisLabelsXJust() const;
  /// CTextObj3D::SetYJustify() of the labels; -1 (default) chooses by axis, plane and rotation.
  void SetAxisLabelsYJust(int justify);
  int GetAxisLabelsYJust() const;
  /// Without effect: every major tic has its label. Not saved in chart files. Default 0.
  void SetAxisLabelsNthTic(int n);
  int GetAxisLabelsNthTic() const;
  /// Distance of labels from the axis in lengths of a major tic, or in thicknesses of the wall when
  /// that is more. Default 1.5.
  void SetAxisLabelsTicOffset(double lengths);
  double GetAxisLabelsTicOffset() const;
  /// CTextObj3D::SetCharSize() of the labels. Default 1.
  void SetAxisLabelsSize(double size);
  double GetAxisLabelsSize() const;
  /// Nonzero mirrors the labels; on linear axes alone. Default 0.
  /// Kept: the flip about x exchanges top and bottom.
  void SetAxisLabelsFlipX(int flag);
  int GetAxisLabelsFlipX() const;
  /// The same about y, which exchanges left and right.
  void SetAxisLabelsFlipY(int flag);
  int GetAxisLabelsFlipY() const;
  /// Default black.
  void SetAxisLabelsColor(RGBDType const& color);
  RGBDType GetAxisLabelsColor() const;
  /// Suffixes of format 2: character i marks 1000 to the power of i; character 0 isn't used.
  /// Default " KMBT". Not saved in chart files.
  /// @throws CErr3D type 2, class 3, "SetEngString"
  void SetEngString(CString const& suffixes);
  CString GetEngString() const;
  /// Addition: the number of labels of the last drawing and the one at `index`, from 0 (null beyond
  /// the end).
  int GetNumAxisLabelObjs() const;
  CTextObj3D* GetAxisLabelObj(int index) const;
  /// @}

  /// @name Title
  /// @{

  /// Sets the properties of these names.
  /// @param automatic see SetAxisTitleAutomatic()
  void SetAxisTitle(int plane, int direction, int rotation, int xJust, int yJust, int automatic,
                    RGBDType const& color, CString const& text);
  /// Default empty.
  void SetAxisTitleString(CString const& text);
  void GetAxisTitleString(CString& text) const;
  /// CTextObj3D::SetTextPlane() of the title. Default 3.
  void SetAxisTitlePlane(int plane);
  int GetAxisTitlePlane() const;
  /// Stored only: the title stands beyond the labels. Default 0.
  void SetAxisTitleDir(int direction);
  int GetAxisTitleDir() const;
  /// Degrees, where the title isn't automatic. Default 0.
  void SetAxisTitleRotation(int degrees);
  int GetAxisTitleRotation() const;
  /// CTextObj3D::SetXJustify(), where the title isn't automatic. Default 0.
  void SetAxisTitleXJust(int justify);
  int GetAxisTitleXJust() const;
  /// CTextObj3D::SetYJustify(), where the title isn't automatic. Default 1.
  void SetAxisTitleYJust(int justify);
  int GetAxisTitleYJust() const;
  /// Addition: nonzero (default) chooses rotation and justification by the axis.
  void SetAxisTitleAutomatic(int flag);
  int GetAxisTitleAutomatic() const;
  /// CTextObj3D::SetCharSize() of the title. Default 1.
  void SetAxisTitleSize(double size);
  double GetAxisTitleSize() const;
  /// Nonzero mirrors the title. Default 0. The flip about x exchanges top and bottom.
  void SetAxisTitleFlipX(int flag);
  int GetAxisTitleFlipX() const;
  /// The same about y, which exchanges left and right.
  void SetAxisTitleFlipY(int flag);
  int GetAxisTitleFlipY() const;
  /// Default black. Kept: with alpha 0, which drawing doesn't use.
  void SetAxisTitleColor(RGBDType const& color);
  RGBDType GetAxisTitleColor() const;
  /// Addition: the title, owned here.
  CTextObj3D* GetAxisTitleObj() const;
  /// @}

  /// Makes the labels anew and draws them, then the title. The context must be current and the
  /// transform's chart transformation loaded. Draws nothing while the context's current font index
  /// names no font.
  /// @throws CErr3D type 3, class 3, "NewLabelObj", or as CTextObj3D::SetString()
  void DrawAxisLabels();

  /// Addition: id of the transform, as bound or as loaded.
  int GetTransformID() const;
  /// Addition: 404 in a live object.
  int GetClassTag() const;

  /// Writes the labels' record, with the title's, to an open file. Null does nothing.
  /// @throws CErr3D type 7, "Save", of class 3, or 19 for the title
  void Save(void* file) const;
  /// Reads the record from an open file. The counter becomes the stored one. Null does nothing.
  /// @throws CErr3D type 7, "Load", of class 3, or 19 for the title
  void Load(void* file);

  static int nSelfID;  ///< label objects counted so far; Load() overwrites it

 private:
  struct Justification {
    int x;
    int y;
  };

  template <class Record, class Self>
  static void RecordFields(Record& record, Self& self);

  void InitTicStringsStorage(const CString* strings, int count);
  void DeleteTicStringsStorage();
  bool IsDrawn() const;
  bool CalcAxisLabels();
  bool CalcLinAxisLabels();
  bool CalcLogAxisLabels();
  void CalcAxisTitle(point3Dtype const& labelLocation);
  Justification LabelJustify() const;
  Justification TitleJustify(int& rotation) const;
  double SetOff() const;
  bool IsKept(double value, double min, double center, double max) const;
  CString LabelText(double value, int index) const;
  CTextObj3D* NewLabelObj(CString const& text);
  /// Null when there is no room for more labels.
  CTextObj3D* AppendLabel(double value, int index, Justification justify,
                          point3Dtype const& location);
  void FreeLabelObjs();
  double GetMaxLabelLength() const;
  void calcticpoint(point3Dtype& point, double length, int direction) const;

  COpenGL* m_context;                        ///< not owned
  CAxis3D* m_axis;                           ///< the axis labelled; not owned
  CTransform3D* m_transform;                 ///< not owned
  orvalix::ObjectList<CTextObj3D> m_labels;  ///< of the last drawing
  int m_labelCharacters;                     ///< of m_labels, and one for each of them
  int m_axisIndex;                           ///< 0 x, 1 y, 2 z
  int m_labelsPlane;
  int m_labelsDir;       ///< direction code
  int m_labelsRotation;  ///< degrees
  int m_labelsDecimals;
  int m_labelsFormat;
  int m_labelsEnds;   ///< 1 minimum, 2 centre, 4 maximum
  int m_labelsXJust;  ///< -1: automatic
  int m_labelsYJust;  ///< -1: automatic
  int m_titlePlane;
  int m_titleDir;
  int m_titleRotation;  ///< degrees
  int m_titleXJust;
  int m_titleYJust;
  int m_titleAutomatic;  ///< nonzero: rotation and justification by the axis
  int m_labelsNthTic;    ///< stored only
  double m_ticOffset;    ///< lengths of a tic
  double m_labelsSize;
  double m_titleSize;
  /// By axis, then by text plane: x, y, and x, y of a turned text; CTextObj3D::SetJustify() codes.
  std::array<std::array<std::array<int, 4>, 4>, 3> m_justification;
  int m_labelsSet;  ///< 1 after SetAxisLabels()
  int m_reserved;   ///< saved and loaded, otherwise not used
  int m_labelStringsEnable;
  int m_labelsFlipX;
  int m_labelsFlipY;
  int m_titleFlipX;
  int m_titleFlipY;
  RGBDType m_labelsColor;
  RGBDType m_titleColor;
  std::unique_ptr<CTextObj3D> m_title;
  std::vector<CString> m_ticStrings;
  CString m_engString;  ///< suffixes of format 2
  int m_transformID;    ///< id of the transform
  int m_classTag;       ///< 404 marks a live object
};

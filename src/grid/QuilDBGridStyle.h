#pragma once
// The grid's vocabulary of looks: the style kinds, the spacing object, the named style
// tables and the color resolution that painting asks for.

#include <QString>

#include "framework/graphics/Colors.h"
#include "framework/graphics/Types.h"
#include "framework/rtl/Persistent.h"
#include "framework/rtl/TypInfo.h"
#include "grid/QuilDBGridOptions.h"

namespace quil {

class TQuilCustomDBGrid;

enum TFixedStyle { fsDefault, fsSoft, fsNice, fsFlat, fsGreat, fsGray, fsFine, fsMild };
enum TFixedTheme { ftNone, ftDefault, ftButtons, ftTabs };
enum TFocusRect { frAuto, frDefault, frGray, frMild, frNone };
enum THotButtons { hbAuto, hbNone, hbBump, hbTile, hbLowered, hbRaised };
enum TListBorder { lbAuto, lbDefault, lbGray, lbMild };
enum TVisualStyle { vsCustom, vsDefault, vsStandard, vsXPStyle };

const TEnumTypeInfo& TypeInfo(TFixedStyle);
const TEnumTypeInfo& TypeInfo(TFixedTheme);
const TEnumTypeInfo& TypeInfo(TFocusRect);
const TEnumTypeInfo& TypeInfo(THotButtons);
const TEnumTypeInfo& TypeInfo(TListBorder);
const TEnumTypeInfo& TypeInfo(TVisualStyle);
const TEnumTypeInfo& TypeInfo(TSystemStyleElement);

// clDefault gives defaultColor; clNone gives alternate, or defaultColor when alternate
// is clDefault; any other color gives itself.
TColor GetTrueColor(TColor color, TColor defaultColor, TColor alternate);

// The spacing of the grid's rows and titles in pixels. vsStandard and vsXPStyle are
// tables; setting a number by hand makes the style vsCustom.
class TQuilGridStyle : public TPersistent {
public:
  explicit TQuilGridStyle(TQuilCustomDBGrid* grid);

  static const TMetaClass& StaticClass();
  const TMetaClass& ClassType() const override;
  TPersistent* GetOwner() const override;
  TQuilCustomDBGrid* Grid() const { return grid_; }

  void Assign(const TPersistent* source) override;

  // Height added to the text in a data row, a header band, a title row, a total row.
  int DataRowSpace() const { return dataRowSpace_; }
  void SetDataRowSpace(int value) { Store(dataRowSpace_, value); }
  int HeaderRowSpace() const { return headerRowSpace_; }
  void SetHeaderRowSpace(int value) { Store(headerRowSpace_, value); }
  int TitleRowSpace() const { return titleRowSpace_; }
  void SetTitleRowSpace(int value) { Store(titleRowSpace_, value); }
  int TotalRowSpace() const { return totalRowSpace_; }
  void SetTotalRowSpace(int value) { Store(totalRowSpace_, value); }
  // Margin left and right of a title, of a total cell.
  int TitleColMargin() const { return titleColMargin_; }
  void SetTitleColMargin(int value) { Store(titleColMargin_, value); }
  int TotalColMargin() const { return totalColMargin_; }
  void SetTotalColMargin(int value) { Store(totalColMargin_, value); }

  // vsDefault picks the table by whether the grid is themed, and stays vsDefault.
  TVisualStyle VisualStyle() const { return visualStyle_; }
  void SetVisualStyle(TVisualStyle value);
  // The numbers are stored only when they are nobody's table.
  bool IsStyleStored() const { return visualStyle_ == vsCustom; }

protected:
  // custom: a number was set by hand.
  virtual void VisualStyleChanged(bool custom);

private:
  void Store(int& member, int value);
  void ApplyTable(TVisualStyle table);

  TQuilCustomDBGrid* grid_;
  int dataRowSpace_ = 4;
  int headerRowSpace_ = 8;
  int titleColMargin_ = 1;
  int titleRowSpace_ = 8;
  int totalColMargin_ = 0;
  int totalRowSpace_ = 8;
  TVisualStyle visualStyle_ = vsXPStyle;
};

}  // namespace quil

#include "framework/graphics/StyleServices.h"

#include <QGuiApplication>
#include <QPalette>
#include <algorithm>
#include <array>

#include "framework/rtl/Format.h"

namespace quil {

namespace {
constexpr int kNoRole = -1;

// The scheme role of each system color index.
constexpr std::array<int, SystemColorCount> kSystemColorRoles{
    srMidlight, srAppWorkSpace, srActiveCaption, srInactiveCaption, srFace, srWindow,
    srDarkShadow, srWindowText, srWindowText, srCaptionText, srFace, srMidlight,
    srAppWorkSpace, srHighlight, srHighlightText, srFace, srShadow, srGrayText, srFaceText,
    srInactiveCaptionText, srLight, srDarkShadow, srMidlight, srInfoText, srInfoBk, kNoRole,
    srHotLight, srRowSelected, srInactiveCaption, srHighlight, srFace};

constexpr std::array<TSchemeRole, scWindow + 1> kStyleColorRoles{
    srBorder, srFace, srButtonHot, srButtonHot, srFace, srButtonPressed, srFace,
    srHeaderGradientBase, srHeaderGradientEnd, srFace, srWindow, srFace, srWindow, srFace,
    srWindow, srFace, srHeaderGradientBase, srHeaderGradientEnd, srInfoBk, srInfoBk, srWindow,
    srFace, srWindow, srFace, srFace, srFace, srHeaderGradientBase, srHeaderGradientEnd,
    srWindow, srFace};

TSchemeRole FontRole(TStyleFont font) {
  switch (font) {
    case sfButtonTextDisabled: case sfCheckBoxTextDisabled: case sfComboBoxItemDisabled:
    case sfEditBoxTextDisabled: case sfGroupBoxTextDisabled: case sfHeaderSectionTextDisabled:
    case sfListItemTextDisabled: case sfMenuItemTextDisabled: case sfPanelTextDisabled:
    case sfPopupMenuItemTextDisabled: case sfRadioButtonTextDisabled:
    case sfStatusPanelTextDisabled: case sfTabTextActiveDisabled: case sfTabTextInactiveDisabled:
    case sfTextLabelDisabled: case sfToolItemTextDisabled: case sfTreeItemTextDisabled:
    case sfWindowTextDisabled:
      return srGrayText;
    case sfCategoryButtonsCategorySelected: case sfCategoryButtonsSelected:
    case sfComboBoxItemSelected: case sfEditBoxTextSelected: case sfGridItemSelected:
    case sfListItemTextSelected: case sfMenuItemTextSelected: case sfMenuItemTextHot:
    case sfPopupMenuItemTextSelected: case sfPopupMenuItemTextHot: case sfToolItemTextSelected:
    case sfTreeItemTextSelected:
      return srHighlightText;
    case sfCaptionTextNormal: case sfSmCaptionTextNormal:
      return srCaptionText;
    case sfCaptionTextInactive: case sfSmCaptionTextInactive:
      return srInactiveCaptionText;
    case sfButtonTextFocused: case sfButtonTextHot: case sfButtonTextNormal:
    case sfButtonTextPressed: case sfCategoryPanelGroupHeaderHot:
    case sfCategoryPanelGroupHeaderNormal: case sfCategoryButtonsCategoryNormal:
    case sfGridItemFixedHot: case sfGridItemFixedNormal: case sfGridItemFixedPressed:
    case sfHeaderSectionTextHot: case sfHeaderSectionTextNormal: case sfHeaderSectionTextPressed:
    case sfTabTextActiveHot: case sfTabTextActiveNormal: case sfTabTextInactiveHot:
    case sfTabTextInactiveNormal: case sfToolItemTextHot: case sfToolItemTextNormal:
      return srFaceText;
    default:
      return srWindowText;
  }
}

struct StyleRegistry {
  std::vector<std::unique_ptr<TCustomStyleServices>> styles;
  TCustomStyleServices* active = nullptr;
  std::vector<TNotifyEvent> handlers;

  StyleRegistry() {
    styles.push_back(std::make_unique<TCustomStyleServices>(SystemStyleScheme(), true));
    styles.push_back(std::make_unique<TCustomStyleServices>(LightStyleScheme()));
    styles.push_back(std::make_unique<TCustomStyleServices>(DarkStyleScheme()));
    active = styles.front().get();
  }

  TCustomStyleServices* Find(const QString& name) const {
    for (const auto& style : styles)
      if (style->Name().compare(name, Qt::CaseInsensitive) == 0) return style.get();
    return nullptr;
  }
};

StyleRegistry& Registry() {
  static StyleRegistry registry;
  return registry;
}
}  // namespace

const TMetaClass& TCustomStyleServices::StaticClass() {
  static const TMetaClass meta("TCustomStyleServices", &TObject::StaticClass());
  return meta;
}

const TMetaClass& TCustomStyleServices::ClassType() const { return StaticClass(); }

TCustomStyleServices::TCustomStyleServices(TStyleScheme scheme, bool systemStyle)
    : scheme_(std::move(scheme)), systemStyle_(systemStyle) {}

TCustomStyleServices::~TCustomStyleServices() = default;

const QString& TCustomStyleServices::Name() const { return scheme_.Name; }

const TStyleScheme& TCustomStyleServices::Scheme() const {
  if (systemStyle_) {
    const int64_t key = QGuiApplication::palette().cacheKey();
    if (key != paletteKey_) {
      scheme_ = SystemStyleScheme();
      paletteKey_ = key;
    }
  }
  return scheme_;
}

TColor TCustomStyleServices::GetSystemColor(TColor color) const {
  if (!IsSystemColor(color)) return color;
  const int index = color & 0xFF;
  if (index >= SystemColorCount || kSystemColorRoles[size_t(index)] == kNoRole) return clBlack;
  return Scheme()[TSchemeRole(kSystemColorRoles[size_t(index)])];
}

TColor TCustomStyleServices::GetStyleColor(TStyleColor color) const {
  return Scheme()[kStyleColorRoles[size_t(color)]];
}

TColor TCustomStyleServices::GetStyleFontColor(TStyleFont font) const {
  return Scheme()[FontRole(font)];
}

TCustomStyleServices* StyleServices() { return Registry().active; }

TColor GetSysColor(int index) { return StyleServices()->GetSystemColor(SystemColor(index & 0xFF)); }

bool TStyleManager::IsCustomStyleActive() { return !Registry().active->IsSystemStyle(); }

TCustomStyleServices& TStyleManager::ActiveStyle() { return *Registry().active; }

QStringList TStyleManager::StyleNames() {
  QStringList names;
  for (const auto& style : Registry().styles) names << style->Name();
  return names;
}

bool TStyleManager::TrySetStyle(const QString& name) {
  StyleRegistry& registry = Registry();
  TCustomStyleServices* style = registry.Find(name);
  if (!style) return false;
  if (style == registry.active) return true;
  registry.active = style;
  // A handler may unregister itself while it hears the news.
  const std::vector<TNotifyEvent> handlers = registry.handlers;
  for (const TNotifyEvent& handler : handlers) handler(style);
  return true;
}

void TStyleManager::SetStyle(const QString& name) {
  if (!TrySetStyle(name))
    throw EStyleEngineException(Format(QStringLiteral("Style '%s' not found"), {name}));
}

void TStyleManager::RegisterStyle(const TStyleScheme& scheme) {
  StyleRegistry& registry = Registry();
  if (registry.Find(scheme.Name))
    throw EStyleEngineException(Format(QStringLiteral("Style '%s' already registered"), {scheme.Name}));
  registry.styles.push_back(std::make_unique<TCustomStyleServices>(scheme));
}

void TStyleManager::AddStyleChangedHandler(const TNotifyEvent& handler) {
  auto& handlers = Registry().handlers;
  if (std::find(handlers.begin(), handlers.end(), handler) == handlers.end()) handlers.push_back(handler);
}

void TStyleManager::RemoveStyleChangedHandler(const TNotifyEvent& handler) {
  auto& handlers = Registry().handlers;
  handlers.erase(std::remove(handlers.begin(), handlers.end(), handler), handlers.end());
}

}  // namespace quil

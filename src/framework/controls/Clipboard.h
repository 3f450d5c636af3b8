#pragma once
// The system clipboard as text.

#include <QString>

namespace quil {

constexpr unsigned CF_TEXT = 1;
constexpr unsigned CF_UNICODETEXT = 13;

class TClipboard {
public:
  QString AsText() const;
  void SetAsText(const QString& text);
  bool HasFormat(unsigned format) const;
  void Clear();
  // Brackets several changes; the clipboard holds no lock of its own.
  void Open() {}
  void Close() {}
};

TClipboard* Clipboard();

}  // namespace quil

#include "framework/controls/Clipboard.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QMimeData>

namespace quil {

QString TClipboard::AsText() const { return QGuiApplication::clipboard()->text(); }

void TClipboard::SetAsText(const QString& text) { QGuiApplication::clipboard()->setText(text); }

bool TClipboard::HasFormat(unsigned format) const {
  const QMimeData* data = QGuiApplication::clipboard()->mimeData();
  return (format == CF_TEXT || format == CF_UNICODETEXT) && data && data->hasText();
}

void TClipboard::Clear() { QGuiApplication::clipboard()->clear(); }

TClipboard* Clipboard() {
  static TClipboard clipboard;
  return &clipboard;
}

}  // namespace quil

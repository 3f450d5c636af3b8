#pragma once
// TPicture: holds one graphic of any registered class. A file chooses the class by its
// extension, a stream by its first bytes. The registry starts with bmp, png, jpg/jpeg,
// gif and ico; an application may add classes of its own.

#include <QByteArray>
#include <QString>
#include <memory>

#include "framework/graphics/Graphic.h"

namespace quil {

class TBitmap;

class TPicture : public TPersistent {
public:
  TPicture();
  ~TPicture() override;
  TPicture(const TPicture&) = delete;
  TPicture& operator=(const TPicture&) = delete;

  static const TMetaClass& StaticClass();
  const TMetaClass& ClassType() const override;

  TGraphic* Graphic() const { return graphic_.get(); }
  // Takes a copy of graphic, of the same class; null empties the picture.
  void SetGraphic(const TGraphic* graphic);
  // The graphic as a bitmap; a graphic of another class gives way to an empty bitmap.
  TBitmap* Bitmap();
  int Width() const;
  int Height() const;

  void LoadFromFile(const QString& fileName);
  void SaveToFile(const QString& fileName) const;
  void LoadFromStream(TStream& stream);
  void SaveToStream(TStream& stream) const;
  // Decodes data in the class its first bytes name; raises EInvalidGraphic when none.
  void LoadFromData(const QByteArray& data);

  void Assign(const TPersistent* source) override;

  const TNotifyEvent& OnChange() const { return onChange_; }
  void SetOnChange(const TNotifyEvent& handler) { onChange_ = handler; }

  // extension without the dot, case-insensitive; signature: the first bytes of the
  // class' data, empty when it has none.
  static void RegisterFileFormat(const QString& extension, const QString& description,
                                 TGraphicClass graphicClass, const QByteArray& signature = QByteArray());
  static void UnregisterGraphicClass(TGraphicClass graphicClass);
  static TGraphicClass FindGraphicClassByExtension(const QString& extension);
  static TGraphicClass FindGraphicClassBySignature(const QByteArray& data);
  // "All (*.bmp;*.png)|*.bmp;*.png|Bitmaps (*.bmp)|*.bmp|..." for graphicClass and
  // its descendants.
  static QString GraphicFilter(TGraphicClass graphicClass);

private:
  void SetOwnedGraphic(std::unique_ptr<TGraphic> graphic);
  void GraphicChanged(TObject* sender);

  std::unique_ptr<TGraphic> graphic_;
  TNotifyEvent onChange_;
};

// A new, empty graphic of graphicClass.
std::unique_ptr<TGraphic> CreateGraphic(TGraphicClass graphicClass);

}  // namespace quil

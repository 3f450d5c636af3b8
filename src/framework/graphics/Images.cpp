#include "framework/graphics/Images.h"

#include <QBuffer>
#include <QImage>
#include <QImageReader>
#include <QImageWriter>
#include <QPainter>

#include "framework/rtl/Format.h"
#include "framework/rtl/RtlConsts.h"

namespace quil {

class TEncodedGraphicPrivate {
public:
  explicit TEncodedGraphicPrivate(const char* format) : format(format) {}
  QByteArray format;
  QImage image;
  QByteArray data;  // the bytes image came from; empty once the pixels changed
};

namespace {
// The largest image of the data: icons hold several sizes, animations several frames
// of which the first counts.
QImage ReadImage(const QByteArray& data, const QByteArray& format) {
  QBuffer buffer;
  buffer.setData(data);
  buffer.open(QIODevice::ReadOnly);
  QImageReader reader(&buffer, format);
  QImage best = reader.read();
  if (format == "ico") {
    while (reader.jumpToNextImage()) {
      const QImage next = reader.read();
      if (next.width() * next.height() > best.width() * best.height()) best = next;
    }
  }
  return best.isNull() ? best : best.convertToFormat(QImage::Format_ARGB32_Premultiplied);
}
}  // namespace

const TMetaClass& TEncodedGraphic::StaticClass() {
  static const TMetaClass meta("TEncodedGraphic", &TGraphic::StaticClass());
  return meta;
}

const TMetaClass& TEncodedGraphic::ClassType() const { return StaticClass(); }

TEncodedGraphic::TEncodedGraphic(const char* format) : d_(std::make_unique<TEncodedGraphicPrivate>(format)) {}

TEncodedGraphic::~TEncodedGraphic() = default;

bool TEncodedGraphic::Empty() const { return d_->image.isNull(); }

int TEncodedGraphic::Width() const { return d_->image.width(); }

int TEncodedGraphic::Height() const { return d_->image.height(); }

void TEncodedGraphic::SetSize(int width, int height) {
  if (width == Width() && height == Height()) return;
  QImage resized;
  if (width > 0 && height > 0) {
    resized = QImage(width, height, QImage::Format_ARGB32_Premultiplied);
    resized.fill(Qt::transparent);
    QPainter(&resized).drawImage(0, 0, d_->image);
  }
  d_->image = resized;
  PixelsChanged();
}

void TEncodedGraphic::PixelsChanged() {
  d_->data.clear();
  Changed();
}

void TEncodedGraphic::LoadFromData(const QByteArray& data) {
  QImage image = ReadImage(data, d_->format);
  if (image.isNull()) throw EInvalidGraphic(SInvalidImage);
  d_->image = image;
  d_->data = data;
  SetTransparent(image.hasAlphaChannel());
  Changed();
}

QByteArray TEncodedGraphic::SaveToData() const {
  if (!d_->data.isEmpty() || d_->image.isNull()) return d_->data;
  QByteArray data;
  QBuffer buffer(&data);
  buffer.open(QIODevice::WriteOnly);
  QImageWriter writer(&buffer, d_->format);
  writer.setQuality(SaveQuality());
  if (!writer.write(ToImage()))
    throw EInvalidGraphicOperation(Format(QStringLiteral("Cannot save an image as %s"), {QString::fromLatin1(d_->format)}));
  return data;
}

void TEncodedGraphic::Assign(const TPersistent* source) {
  const auto* other = dynamic_cast<const TEncodedGraphic*>(source);
  if (!other || &other->ClassType() != &ClassType()) return TGraphic::Assign(source);
  d_->image = other->d_->image;
  d_->data = other->d_->data;
  SetTransparent(other->Transparent());
  Changed();
}

QImage TEncodedGraphic::ToImage() const { return d_->image; }

void TEncodedGraphic::AssignImage(const QImage& image) {
  d_->image = image.isNull() ? QImage() : image.convertToFormat(QImage::Format_ARGB32_Premultiplied);
  PixelsChanged();
}

const TMetaClass& TPngImage::StaticClass() {
  static const TMetaClass meta = TMetaClass("TPngImage", &TEncodedGraphic::StaticClass()).Creates<TPngImage>();
  return meta;
}

const TMetaClass& TPngImage::ClassType() const { return StaticClass(); }

const TMetaClass& TJPEGImage::StaticClass() {
  static const TMetaClass meta = TMetaClass("TJPEGImage", &TEncodedGraphic::StaticClass()).Creates<TJPEGImage>();
  return meta;
}

const TMetaClass& TJPEGImage::ClassType() const { return StaticClass(); }

void TJPEGImage::SetCompressionQuality(int quality) {
  quality = std::clamp(quality, 1, 100);
  if (quality_ == quality) return;
  quality_ = quality;
  PixelsChanged();
}

void TJPEGImage::SetGrayscale(bool grayscale) {
  if (grayscale_ == grayscale) return;
  grayscale_ = grayscale;
  PixelsChanged();
}

QImage TJPEGImage::ToImage() const {
  const QImage image = TEncodedGraphic::ToImage();
  if (!grayscale_ || image.isNull()) return image;
  return image.convertToFormat(QImage::Format_Grayscale8).convertToFormat(QImage::Format_ARGB32_Premultiplied);
}

const TMetaClass& TGIFImage::StaticClass() {
  static const TMetaClass meta = TMetaClass("TGIFImage", &TEncodedGraphic::StaticClass()).Creates<TGIFImage>();
  return meta;
}

const TMetaClass& TGIFImage::ClassType() const { return StaticClass(); }

const TMetaClass& TIcon::StaticClass() {
  static const TMetaClass meta = TMetaClass("TIcon", &TEncodedGraphic::StaticClass()).Creates<TIcon>();
  return meta;
}

const TMetaClass& TIcon::ClassType() const { return StaticClass(); }

}  // namespace quil

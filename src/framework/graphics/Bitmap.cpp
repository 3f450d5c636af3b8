#include "framework/graphics/Bitmap.h"

#include <QBuffer>
#include <QFile>
#include <QPainter>
#include <cassert>

#include "framework/graphics/Bitmap_p.h"
#include "framework/graphics/Canvas_p.h"
#include "framework/graphics/Colors_p.h"
#include "framework/graphics/ImageTools_p.h"
#include "framework/rtl/Format.h"
#include "framework/rtl/RtlConsts.h"

namespace quil {

namespace {
constexpr QImage::Format kFormat = QImage::Format_ARGB32_Premultiplied;

// A bitmap's canvas paints on the bitmap's own image, beginning when first needed.
class TBitmapCanvas : public TCanvas {
public:
  TBitmapCanvas(TBitmap* bitmap, TBitmapPrivate* d) : bitmap_(bitmap), d_(d) {}

protected:
  void CreateHandle() override {
    if (!d_->image.isNull()) TCanvasPrivate::Get(this)->BindDevice(&d_->image);
  }
  void Changed() override {
    TCanvas::Changed();
    bitmap_->SetModified(true);
  }

private:
  TBitmap* bitmap_;
  TBitmapPrivate* d_;
};

}  // namespace

TBitmapPrivate::~TBitmapPrivate() { ReleaseCanvas(); }

QImage& TBitmapPrivate::Pixels() {
  ReleaseCanvas();
  return image;
}

void TBitmapPrivate::ReleaseCanvas() {
  if (canvas) TCanvasPrivate::Get(canvas.get())->Unbind();
}

const TMetaClass& TBitmap::StaticClass() {
  static const TMetaClass meta = TMetaClass("TBitmap", &TGraphic::StaticClass()).Creates<TBitmap>();
  return meta;
}

const TMetaClass& TBitmap::ClassType() const { return StaticClass(); }

TBitmap::TBitmap() : d_(std::make_unique<TBitmapPrivate>()) {}

TBitmap::TBitmap(int width, int height) : TBitmap() { SetSize(width, height); }

TBitmap::~TBitmap() = default;

TCanvas* TBitmap::Canvas() {
  if (!d_->canvas) d_->canvas = std::make_unique<TBitmapCanvas>(this, d_.get());
  return d_->canvas.get();
}

bool TBitmap::Empty() const { return d_->image.isNull(); }

int TBitmap::Width() const { return d_->image.width(); }

int TBitmap::Height() const { return d_->image.height(); }

void TBitmap::SetSize(int width, int height) {
  width = std::max(width, 0);
  height = std::max(height, 0);
  if (width == Width() && height == Height()) return;
  const QImage old = d_->Pixels();
  QImage resized;
  if (width > 0 && height > 0) {
    resized = QImage(width, height, kFormat);
    resized.fill(ToQColor(d_->canvas ? d_->canvas->Brush()->Color() : clWhite));
    QPainter painter(&resized);
    painter.setCompositionMode(QPainter::CompositionMode_Source);
    painter.drawImage(0, 0, old);
  }
  d_->image = resized;
  Changed();
}

void TBitmap::Assign(const TPersistent* source) {
  if (const auto* bitmap = dynamic_cast<const TBitmap*>(source)) {
    pixelFormat_ = bitmap->pixelFormat_;
    transparentMode_ = bitmap->transparentMode_;
    transparentColor_ = bitmap->transparentColor_;
  }
  TGraphic::Assign(source);
}

void TBitmap::SetPixelFormat(TPixelFormat format) {
  if (pixelFormat_ == format) return;
  pixelFormat_ = format;
  Changed();
}

void TBitmap::SetTransparentMode(TTransparentMode mode) {
  if (transparentMode_ == mode) return;
  transparentMode_ = mode;
  Changed();
}

TColor TBitmap::TransparentColor() const {
  if (transparentMode_ == tmFixed) return transparentColor_;
  const QImage& image = d_->image;
  if (image.isNull()) return clNone;
  return FromQColor(image.pixelColor(0, image.height() - 1));
}

void TBitmap::SetTransparentColor(TColor color) {
  if (transparentMode_ == tmFixed && transparentColor_ == color) return;
  transparentColor_ = color;
  transparentMode_ = tmFixed;
  Changed();
}

uint8_t* TBitmap::ScanLine(int row) {
  QImage& image = d_->Pixels();
  assert(row >= 0 && row < image.height() && "scan line outside the bitmap");
  return image.scanLine(row);
}

void TBitmap::LoadFromData(const QByteArray& data) {
  QImage image;
  if (!image.loadFromData(data)) throw EInvalidGraphic(SInvalidImage);
  AssignImage(image);
}

QByteArray TBitmap::SaveToData() const {
  QByteArray data;
  QBuffer buffer(&data);
  buffer.open(QIODevice::WriteOnly);
  d_->image.save(&buffer, "BMP");
  return data;
}

void TBitmap::LoadFromResourceName(const QString& name) {
  for (const QString& suffix : {QString(), QStringLiteral(".png"), QStringLiteral(".bmp")}) {
    const QString path = QStringLiteral(":/") + name + suffix;
    if (QFile::exists(path)) return LoadFromFile(path);
  }
  throw EInvalidGraphic(Format(QStringLiteral("Resource %s not found"), {name}));
}

QImage TBitmap::ToImage() const { return d_->image; }

void TBitmap::AssignImage(const QImage& image) {
  d_->Pixels() = image.isNull() ? QImage() : image.convertToFormat(kFormat);
  Changed();
}

void TBitmap::Changed() {
  ++d_->generation;
  TGraphic::Changed();
}

std::unique_ptr<TBitmap> CreateMappedBmp(const TBitmap* source, const std::vector<TColor>& oldColors,
                                         const std::vector<TColor>& newColors) {
  auto result = std::make_unique<TBitmap>();
  if (!source) return result;
  result->Assign(source);
  if (source->Empty()) return result;
  std::vector<std::pair<TColor, TColor>> pairs;
  for (size_t index = 0; index < std::min(oldColors.size(), newColors.size()); ++index)
    pairs.emplace_back(ColorToRGB(oldColors[index]), ColorToRGB(newColors[index]));
  result->AssignImage(MapColors(source->ToImage(), pairs));
  return result;
}

QImage TBitmap::DrawingImage() const {
  const QImage& image = d_->image;
  if (!Transparent() || image.isNull()) return image;
  const TColor color = ColorToRGB(TransparentColor());
  if (d_->maskedGeneration != d_->generation || d_->maskedColor != color) {
    d_->masked = MaskColor(image, color);
    d_->maskedGeneration = d_->generation;
    d_->maskedColor = color;
  }
  return d_->masked;
}

}  // namespace quil

#include "framework/graphics/ImageList.h"

#include <QFile>
#include <QImage>
#include <QPainter>
#include <vector>

#include "framework/graphics/Bitmap.h"
#include "framework/graphics/Canvas_p.h"
#include "framework/graphics/Colors_p.h"
#include "framework/graphics/ImageTools_p.h"

namespace quil {

class TImageListPrivate {
public:
  std::vector<QImage> images;  // each Width x Height, premultiplied ARGB

  // Cuts image into pieces of width x height from the left; at least one piece.
  void AddPieces(const QImage& image, int width, int height) {
    const int count = std::max(1, image.width() / std::max(width, 1));
    for (int piece = 0; piece < count; ++piece) {
      QImage cell(width, height, QImage::Format_ARGB32_Premultiplied);
      cell.fill(Qt::transparent);
      QPainter painter(&cell);
      painter.setCompositionMode(QPainter::CompositionMode_Source);
      painter.drawImage(QPoint(0, 0), image, QRect(piece * width, 0, width, height));
      painter.end();
      images.push_back(cell);
    }
  }
};

namespace {
QString FindStrip(const QString& fileOrResource) {
  if (QFile::exists(fileOrResource)) return fileOrResource;
  for (const QString& suffix : {QString(), QStringLiteral(".png"), QStringLiteral(".bmp")}) {
    const QString path = QStringLiteral(":/") + fileOrResource + suffix;
    if (QFile::exists(path)) return path;
  }
  return QString();
}
}  // namespace

const TMetaClass& TImageList::StaticClass() {
  static const TMetaClass meta = TMetaClass("TImageList", &TComponent::StaticClass()).Creates<TImageList>();
  return meta;
}

const TMetaClass& TImageList::ClassType() const { return StaticClass(); }

TImageList::TImageList(TComponent* owner) : TComponent(owner), d_(std::make_unique<TImageListPrivate>()) {}

TImageList::TImageList(int width, int height, TComponent* owner) : TImageList(owner) {
  width_ = std::max(width, 1);
  height_ = std::max(height, 1);
}

TImageList::~TImageList() = default;

void TImageList::Changed() {
  if (onChange_) onChange_(this);
}

void TImageList::SetSize(int width, int height) {
  width = std::max(width, 1);
  height = std::max(height, 1);
  if (width == width_ && height == height_) return;
  width_ = width;
  height_ = height;
  d_->images.clear();
  Changed();
}

int TImageList::Count() const { return int(d_->images.size()); }

int TImageList::Add(TBitmap* image, TBitmap* mask) {
  if (!image || image->Empty()) return -1;
  const int first = Count();
  const QImage pixels = image->ToImage();
  d_->AddPieces(mask && !mask->Empty() ? ApplyMask(pixels, mask->ToImage()) : pixels, width_, height_);
  Changed();
  return first;
}

int TImageList::AddMasked(TBitmap* image, TColor maskColor) {
  if (!image || image->Empty()) return -1;
  const int first = Count();
  d_->AddPieces(MaskColor(image->ToImage(), maskColor), width_, height_);
  Changed();
  return first;
}

void TImageList::Delete(int index) {
  if (index < 0 || index >= Count()) return;
  d_->images.erase(d_->images.begin() + index);
  Changed();
}

void TImageList::Clear() {
  if (d_->images.empty()) return;
  d_->images.clear();
  Changed();
}

bool TImageList::LoadStrip(const QString& fileOrResource, TColor maskColor, int width) {
  const QString path = FindStrip(fileOrResource);
  QImage strip;
  if (path.isEmpty() || !strip.load(path)) return false;
  strip = strip.convertToFormat(QImage::Format_ARGB32_Premultiplied);
  width_ = width > 0 ? width : strip.height();
  height_ = strip.height();
  d_->images.clear();
  d_->AddPieces(maskColor == clNone ? strip : MaskColor(strip, maskColor), width_, height_);
  Changed();
  return true;
}

void TImageList::Draw(TCanvas* canvas, int x, int y, int index, bool enabled) {
  if (!canvas || index < 0 || index >= Count()) return;
  TCanvasPrivate* d = TCanvasPrivate::Get(canvas);
  QPainter* painter = d->Painter();
  if (!painter) return;
  QImage image = StyledImage(index);
  if (!enabled) image = GrayedImage(image);
  if (canvas->CanvasOrientation() == coRightToLeft) image = image.mirrored(true, false);
  const QRect target = d->Map(Bounds(x, y, width_, height_));
  if (bkColor_ != clNone && drawingStyle_ != dsTransparent) painter->fillRect(target, ToQColor(bkColor_));
  painter->drawImage(target, image);
}

void TImageList::GetBitmap(int index, TBitmap* bitmap) {
  if (!bitmap || index < 0 || index >= Count()) return;
  QImage result(width_, height_, QImage::Format_ARGB32_Premultiplied);
  result.fill(bkColor_ == clNone ? QColor(Qt::transparent) : ToQColor(bkColor_));
  QPainter(&result).drawImage(0, 0, StyledImage(index));
  bitmap->AssignImage(result);
}

QImage TImageList::StyledImage(int index) const {
  const QImage& image = d_->images[size_t(index)];
  const TColor blend = blendColor_ == clNone ? clHighlight : blendColor_;
  if (drawingStyle_ == dsFocus) return BlendImage(image, blend, 25);
  if (drawingStyle_ == dsSelected) return BlendImage(image, blend, 50);
  return image;
}

void TImageList::SetBkColor(TColor color) {
  if (bkColor_ == color) return;
  bkColor_ = color;
  Changed();
}

void TImageList::SetBlendColor(TColor color) {
  if (blendColor_ == color) return;
  blendColor_ = color;
  Changed();
}

void TImageList::SetDrawingStyle(TDrawingStyle style) {
  if (drawingStyle_ == style) return;
  drawingStyle_ = style;
  Changed();
}

}  // namespace quil

#include "framework/graphics/Picture.h"

#include <QFileInfo>
#include <algorithm>
#include <vector>

#include "framework/graphics/Bitmap.h"
#include "framework/graphics/Images.h"
#include "framework/rtl/Format.h"
#include "framework/rtl/RtlConsts.h"

namespace quil {

namespace {
struct FileFormat {
  QString extension;
  QString description;
  TGraphicClass graphicClass;
  QByteArray signature;
};

std::vector<FileFormat>& Formats() {
  static std::vector<FileFormat> formats{
      {QStringLiteral("bmp"), QStringLiteral("Bitmaps"), &TBitmap::StaticClass(), QByteArray("BM")},
      {QStringLiteral("png"), QStringLiteral("Portable Network Graphics"), &TPngImage::StaticClass(),
       QByteArray("\x89PNG", 4)},
      {QStringLiteral("jpg"), QStringLiteral("JPEG Image File"), &TJPEGImage::StaticClass(),
       QByteArray("\xFF\xD8\xFF", 3)},
      {QStringLiteral("jpeg"), QStringLiteral("JPEG Image File"), &TJPEGImage::StaticClass(),
       QByteArray("\xFF\xD8\xFF", 3)},
      {QStringLiteral("gif"), QStringLiteral("GIF Image"), &TGIFImage::StaticClass(), QByteArray("GIF8")},
      {QStringLiteral("ico"), QStringLiteral("Icons"), &TIcon::StaticClass(), QByteArray("\0\0\1\0", 4)},
  };
  return formats;
}
}  // namespace

std::unique_ptr<TGraphic> CreateGraphic(TGraphicClass graphicClass) {
  TObject* object = graphicClass ? graphicClass->Create(nullptr) : nullptr;
  auto* graphic = dynamic_cast<TGraphic*>(object);
  if (!graphic) {
    delete object;
    throw EInvalidGraphic(QStringLiteral("Cannot create a graphic of that class"));
  }
  return std::unique_ptr<TGraphic>(graphic);
}

const TMetaClass& TPicture::StaticClass() {
  static const TMetaClass meta = TMetaClass("TPicture", &TPersistent::StaticClass()).Creates<TPicture>();
  return meta;
}

const TMetaClass& TPicture::ClassType() const { return StaticClass(); }

TPicture::TPicture() = default;

TPicture::~TPicture() = default;

void TPicture::SetOwnedGraphic(std::unique_ptr<TGraphic> graphic) {
  graphic_ = std::move(graphic);
  if (graphic_) graphic_->SetOnChange(TNotifyEvent(this, &TPicture::GraphicChanged));
  GraphicChanged(graphic_.get());
}

void TPicture::GraphicChanged(TObject*) {
  if (onChange_) onChange_(this);
}

void TPicture::SetGraphic(const TGraphic* graphic) {
  if (!graphic) return SetOwnedGraphic(nullptr);
  std::unique_ptr<TGraphic> copy = CreateGraphic(&graphic->ClassType());
  copy->Assign(graphic);
  SetOwnedGraphic(std::move(copy));
}

TBitmap* TPicture::Bitmap() {
  if (!dynamic_cast<TBitmap*>(graphic_.get())) SetOwnedGraphic(std::make_unique<TBitmap>());
  return static_cast<TBitmap*>(graphic_.get());
}

int TPicture::Width() const { return graphic_ ? graphic_->Width() : 0; }

int TPicture::Height() const { return graphic_ ? graphic_->Height() : 0; }

void TPicture::LoadFromFile(const QString& fileName) {
  const QString extension = QFileInfo(fileName).suffix();
  TGraphicClass graphicClass = FindGraphicClassByExtension(extension);
  if (!graphicClass) throw EInvalidGraphic(Format(QStringLiteral("Unknown picture file extension (.%s)"), {extension}));
  std::unique_ptr<TGraphic> graphic = CreateGraphic(graphicClass);
  graphic->LoadFromFile(fileName);
  SetOwnedGraphic(std::move(graphic));
}

void TPicture::SaveToFile(const QString& fileName) const {
  if (graphic_) graphic_->SaveToFile(fileName);
}

void TPicture::LoadFromStream(TStream& stream) { LoadFromData(ReadStreamData(stream)); }

void TPicture::SaveToStream(TStream& stream) const {
  if (graphic_) graphic_->SaveToStream(stream);
}

void TPicture::LoadFromData(const QByteArray& data) {
  TGraphicClass graphicClass = FindGraphicClassBySignature(data);
  if (!graphicClass) throw EInvalidGraphic(SInvalidImage);
  std::unique_ptr<TGraphic> graphic = CreateGraphic(graphicClass);
  graphic->LoadFromData(data);
  SetOwnedGraphic(std::move(graphic));
}

void TPicture::Assign(const TPersistent* source) {
  if (const auto* picture = dynamic_cast<const TPicture*>(source)) return SetGraphic(picture->Graphic());
  if (const auto* graphic = dynamic_cast<const TGraphic*>(source)) return SetGraphic(graphic);
  if (!source) return SetGraphic(nullptr);
  TPersistent::Assign(source);
}

void TPicture::RegisterFileFormat(const QString& extension, const QString& description,
                                  TGraphicClass graphicClass, const QByteArray& signature) {
  auto& formats = Formats();
  formats.erase(std::remove_if(formats.begin(), formats.end(),
                               [&](const FileFormat& format) {
                                 return format.extension.compare(extension, Qt::CaseInsensitive) == 0;
                               }),
                formats.end());
  formats.push_back({extension.toLower(), description, graphicClass, signature});
}

void TPicture::UnregisterGraphicClass(TGraphicClass graphicClass) {
  auto& formats = Formats();
  formats.erase(std::remove_if(formats.begin(), formats.end(),
                               [&](const FileFormat& format) { return format.graphicClass == graphicClass; }),
                formats.end());
}

TGraphicClass TPicture::FindGraphicClassByExtension(const QString& extension) {
  QString bare = extension.startsWith(QLatin1Char('.')) ? extension.mid(1) : extension;
  for (const FileFormat& format : Formats())
    if (format.extension.compare(bare, Qt::CaseInsensitive) == 0) return format.graphicClass;
  return nullptr;
}

TGraphicClass TPicture::FindGraphicClassBySignature(const QByteArray& data) {
  for (const FileFormat& format : Formats())
    if (!format.signature.isEmpty() && data.startsWith(format.signature)) return format.graphicClass;
  return nullptr;
}

QString TPicture::GraphicFilter(TGraphicClass graphicClass) {
  QStringList all;
  QStringList parts;
  for (const FileFormat& format : Formats()) {
    if (graphicClass && !format.graphicClass->InheritsFrom(*graphicClass)) continue;
    const QString mask = QStringLiteral("*.") + format.extension;
    all << mask;
    parts << QStringLiteral("%1 (%2)|%2").arg(format.description, mask);
  }
  if (all.isEmpty()) return QString();
  const QString joined = all.join(QLatin1Char(';'));
  return QStringLiteral("All (%1)|%1|").arg(joined) + parts.join(QLatin1Char('|'));
}

}  // namespace quil

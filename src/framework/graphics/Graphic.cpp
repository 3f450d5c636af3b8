#include "framework/graphics/Graphic.h"

#include <QFile>
#include <QImage>

#include "framework/graphics/Canvas_p.h"
#include "framework/rtl/Format.h"
#include "framework/rtl/RtlConsts.h"
#include "framework/rtl/Streams.h"

namespace quil {

const TMetaClass& TGraphic::StaticClass() {
  static const TMetaClass meta("TGraphic", &TPersistent::StaticClass());
  return meta;
}

const TMetaClass& TGraphic::ClassType() const { return StaticClass(); }

void TGraphic::SetTransparent(bool transparent) {
  if (transparent_ == transparent) return;
  transparent_ = transparent;
  Changed();
}

void TGraphic::SetModified(bool modified) {
  if (modified) Changed();
  else modified_ = false;
}

void TGraphic::Changed() {
  modified_ = true;
  if (onChange_) onChange_(this);
}

void TGraphic::LoadFromFile(const QString& fileName) {
  QFile file(fileName);
  if (!file.open(QIODevice::ReadOnly)) throw EFOpenError(Format(SFOpenError, {fileName}));
  LoadFromData(file.readAll());
}

void TGraphic::SaveToFile(const QString& fileName) const {
  QFile file(fileName);
  if (!file.open(QIODevice::WriteOnly | QIODevice::Truncate)) throw EFCreateError(Format(SFCreateError, {fileName}));
  file.write(SaveToData());
}

void TGraphic::LoadFromStream(TStream& stream) { LoadFromData(ReadStreamData(stream)); }

void TGraphic::SaveToStream(TStream& stream) const {
  const QByteArray data = SaveToData();
  stream.WriteBuffer(data.constData(), data.size());
}

void TGraphic::Assign(const TPersistent* source) {
  const auto* graphic = dynamic_cast<const TGraphic*>(source);
  if (!graphic) return TPersistent::Assign(source);
  transparent_ = graphic->transparent_;
  AssignImage(graphic->ToImage());
}

QImage TGraphic::DrawingImage() const { return ToImage(); }

void TGraphic::Draw(TCanvas* canvas, const TRect& rect) {
  TCanvasPrivate* d = TCanvasPrivate::Get(canvas);
  QPainter* painter = d->Painter();
  if (!painter || rect.IsEmpty()) return;
  QImage image = DrawingImage();
  if (image.isNull()) return;
  if (canvas->CanvasOrientation() == coRightToLeft) image = image.mirrored(true, false);
  painter->drawImage(d->Map(rect), image);
}

QByteArray ReadStreamData(TStream& stream) {
  QByteArray data;
  char buffer[65536];
  for (int64_t read = stream.Read(buffer, sizeof buffer); read > 0; read = stream.Read(buffer, sizeof buffer))
    data.append(buffer, qsizetype(read));
  return data;
}

}  // namespace quil

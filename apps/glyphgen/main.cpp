// Writes the grid's glyph strips as PNG files:
//   quil_glyphgen OUTPUT_FOLDER            every strip at every resolution
//   quil_glyphgen --sheet FILE ZOOM [NAME [RES]]  all of them, or the strips of NAME (at
//                                          resolution RES, 0 to 4), on one sheet, for a look by eye
#include <QGuiApplication>
#include <QPainter>
#include <QTextStream>

#include "GlyphArt.h"

namespace {

// Palette images keep the strips small and their colors exact.
QImage Indexed(const QImage& image) {
  const QList<QRgb> palette = {qRgb(128, 128, 0), qRgb(0, 255, 255), qRgb(0, 128, 128), qRgb(0, 0, 255),
                               qRgb(0, 0, 128),   qRgb(0, 255, 0),   qRgb(0, 0, 0)};
  return image.convertToFormat(QImage::Format_Indexed8, palette, Qt::ThresholdDither);
}

int WriteStrips(const QString& folder) {
  for (const glyphart::StripInfo& info : glyphart::Strips())
    for (int resolution = 0; resolution < 5; ++resolution) {
      const QString path = folder + QLatin1Char('/') + QLatin1String(info.name) + glyphart::Suffix(resolution) +
                           QStringLiteral(".png");
      if (!Indexed(glyphart::DrawStrip(info.strip, info.sizes[resolution])).save(path)) {
        QTextStream(stderr) << "cannot write " << path << "\n";
        return 1;
      }
    }
  return 0;
}

// Each strip at each resolution, zoomed, with the transparent color shown light gray.
int WriteSheet(const QString& file, int zoom, const QString& only, int onlyResolution) {
  const int gap = 6;
  int width = 0, height = gap;
  std::vector<QImage> rows;
  for (const glyphart::StripInfo& info : glyphart::Strips())
    for (int resolution = 0; resolution < 5 && (only.isEmpty() || only == QLatin1String(info.name)); ++resolution) {
      if (onlyResolution >= 0 && resolution != onlyResolution) continue;
      QImage strip = glyphart::DrawStrip(info.strip, info.sizes[resolution]);
      for (int y = 0; y < strip.height(); ++y)
        for (int x = 0; x < strip.width(); ++x)
          if (strip.pixel(x, y) == qRgb(128, 128, 0))
            strip.setPixel(x, y, (x / info.sizes[resolution]) % 2 ? qRgb(236, 236, 236) : qRgb(250, 250, 250));
      rows.push_back(strip.scaled(strip.width() * zoom, strip.height() * zoom));
      width = std::max(width, rows.back().width() + 2 * gap);
      height += rows.back().height() + gap;
    }
  QImage sheet(width, height, QImage::Format_RGB32);
  sheet.fill(Qt::white);
  QPainter painter(&sheet);
  int top = gap;
  for (const QImage& row : rows) {
    painter.drawImage(gap, top, row);
    top += row.height() + gap;
  }
  painter.end();
  return sheet.save(file) ? 0 : 1;
}

}  // namespace

int main(int argc, char** argv) {
  QGuiApplication app(argc, argv);
  const QStringList args = app.arguments();
  if (args.size() >= 4 && args.size() <= 6 && args[1] == QStringLiteral("--sheet"))
    return WriteSheet(args[2], std::max(1, args[3].toInt()), args.value(4), args.value(5, QStringLiteral("-1")).toInt());
  if (args.size() == 2) return WriteStrips(args[1]);
  QTextStream(stderr) << "usage: quil_glyphgen OUTPUT_FOLDER | --sheet FILE ZOOM [NAME [RES]]\n";
  return 2;
}

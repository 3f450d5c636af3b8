#pragma once
// TBitmap: a bitmap in memory with a canvas of its own, kept as 32-bit premultiplied
// ARGB. ScanLine gives the framework's 32-bit rows: blue, green, red, alpha per pixel.
// Files load in any format Qt reads and save as BMP.

#include <memory>
#include <vector>

#include "framework/graphics/Colors.h"
#include "framework/graphics/Graphic.h"

namespace quil {

enum TPixelFormat { pfDevice, pf1bit, pf4bit, pf8bit, pf15bit, pf16bit, pf24bit, pf32bit, pfCustom };
// tmAuto takes the bottom-left pixel as the transparent color, tmFixed TransparentColor.
enum TTransparentMode { tmAuto, tmFixed };

class TBitmapPrivate;

class TBitmap : public TGraphic {
public:
  TBitmap();
  TBitmap(int width, int height);
  ~TBitmap() override;

  static const TMetaClass& StaticClass();
  const TMetaClass& ClassType() const override;

  // The canvas draws into this bitmap. It keeps its painter, and so its clip and saved
  // states, until the bitmap's pixels change by another way (SetSize, ScanLine, a load).
  TCanvas* Canvas();

  bool Empty() const override;
  int Width() const override;
  int Height() const override;
  // New pixels take the canvas' brush color.
  void SetSize(int width, int height) override;

  // From a bitmap also the pixel format and the transparency settings.
  void Assign(const TPersistent* source) override;

  // Recorded for callers that ask; the pixels stay 32-bit.
  TPixelFormat PixelFormat() const { return pixelFormat_; }
  void SetPixelFormat(TPixelFormat format);
  TTransparentMode TransparentMode() const { return transparentMode_; }
  void SetTransparentMode(TTransparentMode mode);
  TColor TransparentColor() const;
  // Also makes the mode tmFixed.
  void SetTransparentColor(TColor color);

  // A row of 32-bit pixels, top row 0; valid until the next canvas operation.
  // The canvas lets go of its painter first.
  uint8_t* ScanLine(int row);

  void LoadFromData(const QByteArray& data) override;
  QByteArray SaveToData() const override;
  // Loads an image kept in the application's Qt resources under ":/" name, with or
  // without ".png" or ".bmp".
  void LoadFromResourceName(const QString& name);

  // Shares the pixels: later canvas drawing shows in the result; copy it to keep.
  QImage ToImage() const override;
  void AssignImage(const QImage& image) override;

protected:
  QImage DrawingImage() const override;
  void Changed() override;

private:
  friend class TBitmapPrivate;
  TPixelFormat pixelFormat_ = pfDevice;
  TTransparentMode transparentMode_ = tmAuto;
  TColor transparentColor_ = clDefault;
  std::unique_ptr<TBitmapPrivate> d_;
};

// A copy of source in which each pixel of oldColors[i] takes newColors[i]; system
// colors resolve through the active style, and each pixel is mapped once, so a new
// color that is also an old one stays. Other pixels, and extra colors, are left.
std::unique_ptr<TBitmap> CreateMappedBmp(const TBitmap* source, const std::vector<TColor>& oldColors,
                                         const std::vector<TColor>& newColors);

}  // namespace quil

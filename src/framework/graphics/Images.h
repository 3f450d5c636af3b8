#pragma once
// The picture formats besides bitmaps: PNG, JPEG, GIF (its first frame) and icons
// (the largest image of the file). Each keeps the bytes it was loaded from and saves
// them again unchanged until its pixels change.

#include <memory>

#include "framework/graphics/Graphic.h"

namespace quil {

class TEncodedGraphicPrivate;

class TEncodedGraphic : public TGraphic {
public:
  ~TEncodedGraphic() override;

  static const TMetaClass& StaticClass();
  const TMetaClass& ClassType() const override;

  bool Empty() const override;
  int Width() const override;
  int Height() const override;
  void SetSize(int width, int height) override;

  void LoadFromData(const QByteArray& data) override;
  QByteArray SaveToData() const override;
  // From a graphic of the same class also the file's bytes.
  void Assign(const TPersistent* source) override;

  QImage ToImage() const override;
  void AssignImage(const QImage& image) override;

protected:
  // format: the Qt image format name ("png", "jpeg", "gif", "ico").
  explicit TEncodedGraphic(const char* format);
  // The quality Qt writes with, 0 to 100, or -1 for the format's default.
  virtual int SaveQuality() const { return -1; }
  // Drops the kept bytes, so that the next save encodes the pixels.
  void PixelsChanged();

private:
  std::unique_ptr<TEncodedGraphicPrivate> d_;
};

class TPngImage : public TEncodedGraphic {
public:
  TPngImage() : TEncodedGraphic("png") {}
  static const TMetaClass& StaticClass();
  const TMetaClass& ClassType() const override;
};

class TJPEGImage : public TEncodedGraphic {
public:
  TJPEGImage() : TEncodedGraphic("jpeg") {}
  static const TMetaClass& StaticClass();
  const TMetaClass& ClassType() const override;

  // 1 to 100; a change takes effect at the next save.
  int CompressionQuality() const { return quality_; }
  void SetCompressionQuality(int quality);
  // Draws and saves in shades of gray.
  bool Grayscale() const { return grayscale_; }
  void SetGrayscale(bool grayscale);

  QImage ToImage() const override;

protected:
  int SaveQuality() const override { return quality_; }

private:
  int quality_ = 90;
  bool grayscale_ = false;
};

class TGIFImage : public TEncodedGraphic {
public:
  TGIFImage() : TEncodedGraphic("gif") {}
  static const TMetaClass& StaticClass();
  const TMetaClass& ClassType() const override;
};

class TIcon : public TEncodedGraphic {
public:
  TIcon() : TEncodedGraphic("ico") {}
  static const TMetaClass& StaticClass();
  const TMetaClass& ClassType() const override;
};

}  // namespace quil

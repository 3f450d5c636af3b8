#pragma once
// TImageList: images of one size, drawn by index. An image wider than Width is a
// strip and adds one image per Width columns. A disabled image is drawn in gray.

#include <QString>
#include <memory>

#include "framework/graphics/Colors.h"
#include "framework/rtl/Component.h"
#include "framework/rtl/Events.h"

class QImage;

namespace quil {

class TBitmap;
class TCanvas;
class TImageListPrivate;

// dsFocus and dsSelected blend the image with BlendColor, by a quarter and a half.
enum TDrawingStyle { dsFocus, dsSelected, dsNormal, dsTransparent };

class TImageList : public TComponent {
public:
  explicit TImageList(TComponent* owner = nullptr);
  TImageList(int width, int height, TComponent* owner = nullptr);
  ~TImageList() override;

  static const TMetaClass& StaticClass();
  const TMetaClass& ClassType() const override;

  int Width() const { return width_; }
  int Height() const { return height_; }
  // Changing the size empties the list.
  void SetSize(int width, int height);
  void SetWidth(int width) { SetSize(width, height_); }
  void SetHeight(int height) { SetSize(width_, height); }
  int Count() const;

  // Returns the index of the first image added, -1 when image is empty. A mask
  // bitmap's black pixels are the visible ones.
  int Add(TBitmap* image, TBitmap* mask);
  // Pixels of maskColor become transparent.
  int AddMasked(TBitmap* image, TColor maskColor);
  void Delete(int index);
  void Clear();
  // Loads a horizontal strip of square or Width-wide images from a file or from the
  // application's Qt resources (":/" name, with or without ".png"); pixels of
  // maskColor become transparent, clNone keeps the file's own alpha. The list takes
  // the strip's height as its Height, and its Width too when width is 0.
  bool LoadStrip(const QString& fileOrResource, TColor maskColor, int width = 0);

  void Draw(TCanvas* canvas, int x, int y, int index, bool enabled = true);
  // Copies image index into bitmap, sized to the list, over BkColor (or transparent),
  // blended as DrawingStyle draws it.
  void GetBitmap(int index, TBitmap* bitmap);

  // Filled behind each image when not clNone.
  TColor BkColor() const { return bkColor_; }
  void SetBkColor(TColor color);
  TColor BlendColor() const { return blendColor_; }
  void SetBlendColor(TColor color);
  TDrawingStyle DrawingStyle() const { return drawingStyle_; }
  void SetDrawingStyle(TDrawingStyle style);

  const TNotifyEvent& OnChange() const { return onChange_; }
  void SetOnChange(const TNotifyEvent& handler) { onChange_ = handler; }

private:
  void Changed();
  // The image as DrawingStyle shows it.
  QImage StyledImage(int index) const;

  int width_ = 16;
  int height_ = 16;
  TColor bkColor_ = clNone;
  TColor blendColor_ = clNone;
  TDrawingStyle drawingStyle_ = dsNormal;
  TNotifyEvent onChange_;
  std::unique_ptr<TImageListPrivate> d_;
};

}  // namespace quil

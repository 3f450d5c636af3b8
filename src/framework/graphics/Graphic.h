#pragma once
// TGraphic: a picture that can load, save and draw itself on a canvas. Each format
// keeps its pixels as a QImage (Graphic_p.h reaches it); Qt's image plugins read and
// write the files, so a format is known by the first bytes of its data.

#include <QByteArray>
#include <QString>

#include "framework/graphics/Types.h"
#include "framework/rtl/Events.h"
#include "framework/rtl/Exceptions.h"
#include "framework/rtl/Persistent.h"

class QImage;

namespace quil {

class TCanvas;
class TStream;

class EInvalidGraphic : public Exception {
public:
  using Exception::Exception;
};
class EInvalidGraphicOperation : public Exception {
public:
  using Exception::Exception;
};

class TGraphic : public TPersistent {
public:
  TGraphic() = default;
  TGraphic(const TGraphic&) = delete;
  TGraphic& operator=(const TGraphic&) = delete;

  static const TMetaClass& StaticClass();
  const TMetaClass& ClassType() const override;

  virtual bool Empty() const = 0;
  virtual int Width() const = 0;
  virtual int Height() const = 0;
  // Resizing keeps the pixels that still fit, at the top left.
  virtual void SetSize(int width, int height) = 0;
  void SetWidth(int width) { SetSize(width, Height()); }
  void SetHeight(int height) { SetSize(Width(), height); }

  // A transparent graphic lets the canvas show through where it has no color.
  bool Transparent() const { return transparent_; }
  virtual void SetTransparent(bool transparent);
  bool Modified() const { return modified_; }
  void SetModified(bool modified);

  // The file's bytes in this graphic's format; a failure raises EInvalidGraphic.
  virtual void LoadFromData(const QByteArray& data) = 0;
  virtual QByteArray SaveToData() const = 0;
  void LoadFromFile(const QString& fileName);
  void SaveToFile(const QString& fileName) const;
  // From the stream's position to its end.
  void LoadFromStream(TStream& stream);
  void SaveToStream(TStream& stream) const;

  // Copies from any graphic: the pixels, or all of it from one of the same class.
  void Assign(const TPersistent* source) override;

  const TNotifyEvent& OnChange() const { return onChange_; }
  void SetOnChange(const TNotifyEvent& handler) { onChange_ = handler; }

  // The pixels as drawn, premultiplied ARGB; a null image when empty.
  virtual QImage ToImage() const = 0;
  // Takes over the pixels of image and tells OnChange.
  virtual void AssignImage(const QImage& image) = 0;

protected:
  friend class TCanvas;
  // Draws into rect, stretching; a right-to-left canvas mirrors the pixels.
  virtual void Draw(TCanvas* canvas, const TRect& rect);
  // The pixels that Draw puts down; by default the image itself.
  virtual QImage DrawingImage() const;
  virtual void Changed();

private:
  bool transparent_ = false;
  bool modified_ = false;
  TNotifyEvent onChange_;
};

using TGraphicClass = const TMetaClass*;

// Reads a whole stream from its position into memory.
QByteArray ReadStreamData(TStream& stream);

}  // namespace quil

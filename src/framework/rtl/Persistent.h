#pragma once
// TPersistent: an object that can be assigned from another and streamed.

#include "framework/rtl/Object.h"

namespace quil {

class TFiler;

class TPersistent : public TObject {
public:
  static const TMetaClass& StaticClass();
  const TMetaClass& ClassType() const override;

  // Copies Source into this object; a class that does not know Source asks Source
  // to do it (AssignTo), and raises EConvertError when neither knows the other.
  virtual void Assign(const TPersistent* source);
  // The dotted name by which a stream or an inspector names this object.
  virtual QString GetNamePath() const;

  // Properties with no published form write and read themselves through the filer.
  virtual void DefineProperties(TFiler* filer) {}
  virtual TPersistent* GetOwner() const { return nullptr; }

protected:
  virtual void AssignTo(TPersistent* dest) const;
};

}  // namespace quil

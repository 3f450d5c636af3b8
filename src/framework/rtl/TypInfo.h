#pragma once
// Published properties, reachable by name.

#include <QString>

namespace quil {

class TPropInfo {
public:
  virtual ~TPropInfo() = default;
  const QString& Name() const { return name_; }

protected:
  explicit TPropInfo(QString name) : name_(std::move(name)) {}

private:
  QString name_;
};

}  // namespace quil

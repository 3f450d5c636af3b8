#pragma once
// Format with the framework's directives: "%" [index ":"] ["-"] [width] ["." precision]
// type, where type is one of d u x e f g n m s p, and "*" takes width or precision from
// the arguments. "%%" is a percent sign. A directive that does not fit its argument
// raises EConvertError.

#include <QString>
#include <cstdint>
#include <initializer_list>
#include <variant>

namespace quil {

class TVarRec {
public:
  TVarRec(int value) : value_(int64_t(value)) {}
  TVarRec(unsigned value) : value_(int64_t(value)) {}
  TVarRec(long value) : value_(int64_t(value)) {}
  TVarRec(unsigned long value) : value_(int64_t(value)) {}
  TVarRec(long long value) : value_(int64_t(value)) {}
  TVarRec(unsigned long long value) : value_(int64_t(value)) {}
  TVarRec(double value) : value_(value) {}
  TVarRec(const QString& value) : value_(value) {}
  TVarRec(const char* value) : value_(QString::fromUtf8(value)) {}
  TVarRec(QChar value) : value_(QString(value)) {}
  TVarRec(const void* value) : value_(value) {}

  const std::variant<int64_t, double, QString, const void*>& Value() const { return value_; }

private:
  std::variant<int64_t, double, QString, const void*> value_;
};

QString Format(const QString& format, std::initializer_list<TVarRec> args);

}  // namespace quil

#pragma once
// A set of an enumeration's members, stored as a bit mask whose integer form is the
// framework's: member with ordinal n is bit n. Enumerations hold at most 64 members.

#include <cstdint>
#include <initializer_list>

namespace quil {

template <typename E>
class TSet {
public:
  constexpr TSet() = default;
  constexpr TSet(std::initializer_list<E> members) {
    for (E member : members) bits_ |= Bit(member);
  }

  static constexpr TSet FromInt(uint64_t bits) {
    TSet result;
    result.bits_ = bits;
    return result;
  }
  constexpr uint64_t ToInt() const { return bits_; }

  constexpr bool Contains(E member) const { return (bits_ & Bit(member)) != 0; }
  constexpr bool Empty() const { return bits_ == 0; }
  constexpr int Count() const { return __builtin_popcountll(bits_); }

  constexpr TSet& Include(E member) { bits_ |= Bit(member); return *this; }
  constexpr TSet& Exclude(E member) { bits_ &= ~Bit(member); return *this; }
  constexpr TSet& Switch(E member, bool include) {
    return include ? Include(member) : Exclude(member);
  }

  friend constexpr TSet operator+(TSet a, TSet b) { return FromInt(a.bits_ | b.bits_); }
  friend constexpr TSet operator*(TSet a, TSet b) { return FromInt(a.bits_ & b.bits_); }
  friend constexpr TSet operator-(TSet a, TSet b) { return FromInt(a.bits_ & ~b.bits_); }
  friend constexpr TSet operator+(TSet a, E member) { return a.Include(member); }
  friend constexpr TSet operator-(TSet a, E member) { return a.Exclude(member); }
  TSet& operator+=(TSet other) { bits_ |= other.bits_; return *this; }
  TSet& operator-=(TSet other) { bits_ &= ~other.bits_; return *this; }
  TSet& operator*=(TSet other) { bits_ &= other.bits_; return *this; }
  TSet& operator+=(E member) { return Include(member); }
  TSet& operator-=(E member) { return Exclude(member); }
  friend constexpr bool operator==(TSet a, TSet b) = default;

  // True when every member of this set is in other (`<=` on sets).
  constexpr bool SubsetOf(TSet other) const { return (bits_ & ~other.bits_) == 0; }
  constexpr bool Intersects(TSet other) const { return (bits_ & other.bits_) != 0; }

private:
  static constexpr uint64_t Bit(E member) { return uint64_t{1} << static_cast<unsigned>(member); }
  uint64_t bits_ = 0;
};

}  // namespace quil

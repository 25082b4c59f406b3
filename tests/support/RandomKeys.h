// Keys from the grammar of well-formed ones, some of them then damaged a little: most faults of
// an author, and the places where readings of a key could part. The same seed, the same keys.
#pragma once

#include <cstdint>
#include <random>
#include <string>
#include <string_view>
#include <vector>

namespace zav::test {

class RandomKeys {
 public:
  RandomKeys(std::uint32_t seed, std::string_view itemTypeCode)
      : random_(seed), code_(itemTypeCode) {}

  std::string Next() {
    std::string key = Expression(3);
    for (std::uint32_t damages = Below(3); damages > 0; --damages) Damage(key);
    return key;
  }

 private:
  std::uint32_t Below(std::uint32_t limit) { return static_cast<std::uint32_t>(random_() % limit); }

  std::string Pick(const std::vector<std::string>& choices) {
    return choices[Below(static_cast<std::uint32_t>(choices.size()))];
  }

  std::string Expression(int depth) {
    std::string key = Pick({"", "", "NOT ", "not "}) + Operand(depth);
    if (Below(2) != 0) key += Pick({" AND ", " OR ", " OR ", " and ", " or "}) + Expression(depth);
    return key;
  }

  std::string Operand(int depth) {
    if (depth > 0 && Below(3) == 0) return "(" + Expression(depth - 1) + ")";
    if (code_ == "MC") return Pick({"A", "B", "C"});
    if (code_ == "DC") return Pick({"A1B", "B1A", "A1A", "C2D", "D2C"});
    if (code_ == "BL") return Pick({"A", "B", "A BEFORE B", "B BEFORE A"});
    return Pick({"A1", "B2", "C12", "D3", "E07"});
  }

  void Damage(std::string& key) {
    const std::size_t place = Below(static_cast<std::uint32_t>(key.size()) + 1);
    if (Below(2) == 0) {
      key.insert(place,
                 Pick({" ", "  ", "(", ")", "()", "A", "7", "NOT ", " OR ", "a", "OR", "é"}));
    } else if (place < key.size()) {
      key.erase(place, 1 + Below(3));
    }
  }

  std::mt19937 random_;
  std::string code_;
};

}  // namespace zav::test

#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

#include "base/error.h"
#include "base/text.h"
#include "telematic/engine/layout.h"

namespace cu {

inline constexpr int kErrorKeyPresent = 457;

// Members in insertion order, each with a unique key; keys are compared without case. Errors: 457 for an
// existing key, 5 for an unknown key, 9 for a position out of range.
template <class Member, class Interface>
class KeyedMembers {
 public:
  Member& add(std::string_view key, std::unique_ptr<Member> member) {
    if (!byKey_.emplace(lowerAscii(key), members_.size()).second) {
      throw Error(kErrorKeyPresent, "La chiave è già presente nella raccolta.");
    }
    members_.push_back(std::move(member));
    Member& added = *members_.back();
    interfaces_.push_back(&added);
    return added;
  }
  Member& item(const MemberIndex& index) const { return *members_[position(index)]; }
  void remove(const MemberIndex& index) {
    const std::size_t at = position(index);
    members_.erase(members_.begin() + static_cast<std::ptrdiff_t>(at));
    interfaces_.erase(interfaces_.begin() + static_cast<std::ptrdiff_t>(at));
    std::erase_if(byKey_, [at](const auto& entry) { return entry.second == at; });
    for (auto& [key, place] : byKey_) {
      if (place > at) --place;
    }
  }
  void clear() {
    while (!members_.empty()) remove(std::string_view(members_.front()->Name()));
  }
  std::int32_t count() const { return static_cast<std::int32_t>(members_.size()); }
  std::span<const Interface* const> interfaces() const { return interfaces_; }

 private:
  std::size_t position(const MemberIndex& index) const {
    if (const auto* key = std::get_if<std::string_view>(&index)) {
      const auto found = byKey_.find(lowerAscii(*key));
      if (found == byKey_.end()) {
        throw Error(kErrorInvalidCall, "Nella raccolta non c'è \"" + std::string(*key) + "\".");
      }
      return found->second;
    }
    const std::int32_t at = std::get<std::int32_t>(index);
    if (at < 1 || at > count()) throw Error(kErrorSubscript, "Posizione fuori dalla raccolta.");
    return static_cast<std::size_t>(at) - 1;
  }

  std::vector<std::unique_ptr<Member>> members_;
  std::vector<const Interface*> interfaces_;
  std::unordered_map<std::string, std::size_t> byKey_;  // lower case
};

}  // namespace cu

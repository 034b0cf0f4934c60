#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "host/error.h"
#include "host/text.h"
#include "telematic/engine/layout.h"

namespace cu {

inline constexpr int kErrorKeyPresent = 457;

// Members in the order of addition, each under a key of its own; keys differ without regard to case.
// Errors: 457 for a key that is there already, 5 for an unknown key, 9 for a position out of range.
template <class Member, class Interface>
class KeyedMembers {
 public:
  Member& add(std::string_view key, std::unique_ptr<Member> member) {
    if (find(key) != kNone) throw Error(kErrorKeyPresent, "La chiave è già presente nella raccolta.");
    members_.push_back({std::string(key), std::move(member)});
    Member& added = *members_.back().member;
    interfaces_.push_back(&added);
    return added;
  }
  Member& item(const MemberIndex& index) const { return *members_[position(index)].member; }
  void remove(const MemberIndex& index) {
    const auto at = static_cast<std::ptrdiff_t>(position(index));
    members_.erase(members_.begin() + at);
    interfaces_.erase(interfaces_.begin() + at);
  }
  void clear() {
    while (!members_.empty()) remove(std::string_view(members_.front().member->Name()));
  }
  std::int32_t count() const { return static_cast<std::int32_t>(members_.size()); }
  std::span<const Interface* const> interfaces() const { return interfaces_; }

 private:
  static constexpr std::size_t kNone = static_cast<std::size_t>(-1);
  struct Entry {
    std::string key;
    std::unique_ptr<Member> member;
  };

  std::size_t find(std::string_view key) const {
    const auto found = std::find_if(members_.begin(), members_.end(),
                                    [key](const Entry& entry) { return equalsNoCase(entry.key, key); });
    return found == members_.end() ? kNone : static_cast<std::size_t>(found - members_.begin());
  }
  std::size_t position(const MemberIndex& index) const {
    if (const auto* key = std::get_if<std::string_view>(&index)) {
      const std::size_t at = find(*key);
      if (at == kNone)
        throw Error(kErrorInvalidCall, "Nella raccolta non c'è \"" + std::string(*key) + "\".");
      return at;
    }
    const std::int32_t at = std::get<std::int32_t>(index);
    if (at < 1 || at > count()) throw Error(kErrorSubscript, "Posizione fuori dalla raccolta.");
    return static_cast<std::size_t>(at) - 1;
  }

  std::vector<Entry> members_;
  std::vector<const Interface*> interfaces_;
};

}  // namespace cu

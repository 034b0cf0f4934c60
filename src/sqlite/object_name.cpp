#include "sqlite/object_name.h"

namespace cu::sqlite {

std::string objectOf(std::string_view text) {
  std::string part;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] == '.') {
      part.clear();
    } else if (text[i] == '[') {
      for (++i; i < text.size(); ++i) {
        if (text[i] == ']') {
          if (i + 1 == text.size() || text[i + 1] != ']') break;
          ++i;
        }
        part += text[i];
      }
    } else {
      part += text[i];
    }
  }
  return part;
}

}  // namespace cu::sqlite

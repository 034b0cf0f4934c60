#pragma once

#include <string>
#include <vector>

namespace cu::test {

// What a PDF lacks of ISO 19005-1, level b, by the parts that the standard names: the frame of the file, its
// identifier, metadata equal to the document information, the output intent with its profile, fonts
// embedded with the glyphs and widths that they claim, nothing transparent, active, external or encrypted.
// The file is read by a parser that is not the writer's. Empty for a file that has all.
std::vector<std::string> missingForKeeping(const std::string& path);

// What the validator of the system says of a file that is no PDF/A-1b; empty for one that is.
std::string refusalOfValidator(const std::string& path);

}  // namespace cu::test

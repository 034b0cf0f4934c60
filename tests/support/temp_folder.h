#pragma once

#include <filesystem>
#include <fstream>
#include <sstream>
#include <stdexcept>
#include <string>
#include <string_view>

namespace cu::test {

// A temporary folder on the disk, deleted with the object.
class TempFolder {
 public:
  TempFolder() : TempFolder(std::filesystem::temp_directory_path().string()) {}
  explicit TempFolder(const std::string& below) {
    std::string name = below + "/cu-test-XXXXXX";
    if (::mkdtemp(name.data()) == nullptr) throw std::runtime_error("no temporary folder: " + name);
    path_ = name;
  }
  ~TempFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
  }
  TempFolder(const TempFolder&) = delete;
  TempFolder& operator=(const TempFolder&) = delete;

  const std::string& path() const { return path_; }
  std::string operator/(std::string_view name) const { return path_ + "/" + std::string(name); }

  std::string write(std::string_view name, std::string_view content) const {
    const std::string path = *this / name;
    std::ofstream(path, std::ios::binary).write(content.data(), static_cast<std::streamsize>(content.size()));
    return path;
  }
  std::string read(std::string_view name) const {
    const std::ifstream stream(*this / name, std::ios::binary);
    std::ostringstream content;
    content << stream.rdbuf();
    return std::move(content).str();
  }

 private:
  std::string path_;
};

}  // namespace cu::test

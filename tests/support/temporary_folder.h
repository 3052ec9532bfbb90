// A folder for the files of one test, and reading and writing whole files.

#ifndef TESTS_SUPPORT_TEMPORARY_FOLDER_H_
#define TESTS_SUPPORT_TEMPORARY_FOLDER_H_

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

#include <gtest/gtest.h>
#include <stdlib.h>

namespace qv_test {

/// Removed with all its files at the end.
class TemporaryFolder {
 public:
  TemporaryFolder() : m_path(::testing::TempDir() + "qvxml-test-XXXXXX") {
    if (mkdtemp(m_path.data()) == nullptr) ADD_FAILURE() << "no temporary folder " << m_path;
  }
  TemporaryFolder(const TemporaryFolder&) = delete;
  TemporaryFolder& operator=(const TemporaryFolder&) = delete;
  ~TemporaryFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(m_path, ignored);
  }

  std::string PathOf(const std::string& name) const { return m_path + "/" + name; }
  /// Files and other entries in it.
  long CountEntries() const {
    return std::distance(std::filesystem::directory_iterator(m_path),
                         std::filesystem::directory_iterator());
  }

 private:
  std::string m_path;
};

inline std::string ReadFile(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  EXPECT_TRUE(file.is_open()) << path;
  return std::string(std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>());
}

inline void WriteFile(const std::string& path, const std::string& content) {
  std::ofstream file(path, std::ios::binary);
  file << content;
  EXPECT_TRUE(file.good()) << path;
}

}  // namespace qv_test

#endif  // TESTS_SUPPORT_TEMPORARY_FOLDER_H_

// Locales that the machine need not have: the C library's own compiler makes them for the test.

#ifndef TESTS_SUPPORT_TEST_LOCALE_H_
#define TESTS_SUPPORT_TEST_LOCALE_H_

#include <clocale>
#include <cstdlib>
#include <filesystem>
#include <string>

#include <unistd.h>

namespace qv_test {

/// Puts the process in a locale for the length of a scope, and in "C" after it.
class CTestLocale {
 public:
  /// `source` and `charset` are names of localedef, such as "de_DE" and "ISO-8859-1".
  CTestLocale(const std::string& source, const std::string& charset)
      : m_folder(std::filesystem::temp_directory_path() /
                 ("qvxml_locale_" + std::to_string(getpid()))) {
    std::filesystem::create_directories(m_folder);
    const std::string name = source + "." + charset;
    const std::string command = "localedef -c -i " + source + " -f " + charset + " '" +
                                (m_folder / name).string() + "' >/dev/null 2>&1";
    const bool isCompiled = std::system(command.c_str()) == 0;
    setenv("LOCPATH", m_folder.c_str(), 1);
    m_isAvailable = isCompiled && std::setlocale(LC_ALL, name.c_str()) != nullptr;
    unsetenv("LOCPATH");
  }
  ~CTestLocale() {
    std::setlocale(LC_ALL, "C");
    std::error_code ignored;
    std::filesystem::remove_all(m_folder, ignored);
  }
  CTestLocale(const CTestLocale&) = delete;
  CTestLocale& operator=(const CTestLocale&) = delete;

  /// False where the locale sources are not installed; the test is to be skipped then.
  bool IsAvailable() const { return m_isAvailable; }

  /// Value of LOCPATH with which setlocale finds the locale again after another one was chosen.
  const char* GetFolder() const { return m_folder.c_str(); }

 private:
  std::filesystem::path m_folder;
  bool m_isAvailable = false;
};

}  // namespace qv_test

#endif  // TESTS_SUPPORT_TEST_LOCALE_H_

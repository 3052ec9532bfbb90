#include "qvxml/core/text.h"

#include <charconv>
#include <cwchar>
#include <utility>

#include "qvxml/core/locale_text.h"

namespace QvXmlLib16 {

namespace {

template <class TString>
bool EndsWith(const TString& text, const TString& ending) {
  return text.size() >= ending.size() &&
         text.compare(text.size() - ending.size(), ending.size(), ending) == 0;
}

template <class TString>
void ReplaceOnce(TString& text, const TString& search, const TString& replacement) {
  TString result;
  size_t begin = 0;
  for (size_t hit; (hit = text.find(search, begin)) != text.npos; begin = hit + search.size()) {
    result.append(text, begin, hit - begin).append(replacement);
  }
  text = result.append(text, begin);
}

// Starting at the beginning after each replacement always finds the leftmost occurrence. So does
// moving the text, character by character, from `pending` to `done`, which never holds an
// occurrence, and moving back only what replaces one; this stays linear.
template <class TString>
void ReplaceRepeatedly(TString& text, const TString& search, const TString& replacement) {
  TString done;
  TString pending(text.rbegin(), text.rend());
  while (!pending.empty()) {
    done += pending.back();
    pending.pop_back();
    if (!EndsWith(done, search)) continue;
    done.resize(done.size() - search.size());
    pending.append(replacement.rbegin(), replacement.rend());
  }
  text = std::move(done);
}

template <class TString>
void Replace(TString& text, const TString& search, const TString& replacement) {
  if (search.empty() || text.find(search) == text.npos) return;
  if (replacement.find(search) != replacement.npos) {
    ReplaceOnce(text, search, replacement);
  } else {
    ReplaceRepeatedly(text, search, replacement);
  }
}

}  // namespace

std::string PadZero(int value, unsigned char width) {
  char digits[16];
  char* const end = std::to_chars(digits, digits + sizeof digits, value).ptr;
  std::string text(digits, end);
  if (text.size() < width) text.insert(value < 0 ? 1 : 0, width - text.size(), '0');
  return text;
}

std::string TrimTrainingZeros(std::string text) {
  while (text.size() > 1 && text.back() == '0') text.pop_back();
  return text;
}

std::string ToFracString(unsigned short milli, unsigned short micro, unsigned short nano) {
  if (nano != 0) {
    return "." + PadZero(milli, 3) + PadZero(micro, 3) + TrimTrainingZeros(PadZero(nano, 3));
  }
  if (micro != 0) return "." + PadZero(milli, 3) + TrimTrainingZeros(PadZero(micro, 3));
  if (milli != 0) return "." + TrimTrainingZeros(PadZero(milli, 3));
  return std::string();
}

void FindReplace(std::string& text, const std::string& search, const std::string& replacement) {
  Replace(text, search, replacement);
}

void FindReplace(std::wstring& text, const std::wstring& search, const std::wstring& replacement) {
  Replace(text, search, replacement);
}

char* strupr(char* text) {
  for (char* position = text; position != nullptr && *position != '\0'; ++position) {
    if (*position >= 'a' && *position <= 'z') *position = static_cast<char>(*position - 'a' + 'A');
  }
  return text;
}

std::string UnicodeToMultiByte(const wchar_t* text) {
  return text == nullptr ? std::string() : UnicodeToLocalCodePage(text, std::wcslen(text));
}

long _filelength(FILE* file) {
  if (file == nullptr) return -1;
  const long position = std::ftell(file);
  if (position < 0 || std::fseek(file, 0, SEEK_END) != 0) return -1;
  const long size = std::ftell(file);
  return std::fseek(file, position, SEEK_SET) == 0 ? size : -1;
}

}  // namespace QvXmlLib16

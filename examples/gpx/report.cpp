#include "report.h"

#include <cstdio>
#include <string>
#include <vector>

using QvXmlLib16::CQvException;

namespace {

// The message without the path, which GetMessage() repeats below it.
std::string GetOwnMessage(const CQvException& exception) {
  const std::string& message = exception.GetMessage();
  if (exception.GetPath().empty()) return message;
  return message.substr(0, message.rfind("\nPath: "));
}

}  // namespace

void PrintFailure(const char* file, const CQvException& failure) {
  std::vector<const CQvException*> chain;
  for (const CQvException* link = &failure; link != nullptr; link = link->GetInnerException()) {
    chain.push_back(link);
  }
  // The innermost link is the cause, the innermost path the place.
  std::string place;
  for (const CQvException* link : chain) {
    if (!link->GetPath().empty()) place = link->GetPath();
  }
  std::fprintf(stderr, "%s: %s\n", file, GetOwnMessage(*chain.back()).c_str());
  if (!place.empty()) std::fprintf(stderr, "  at %s\n", place.c_str());
  for (size_t i = chain.size() - 1; i-- > 0;) {
    std::fprintf(stderr, "  because of that: %s\n", GetOwnMessage(*chain[i]).c_str());
  }
}

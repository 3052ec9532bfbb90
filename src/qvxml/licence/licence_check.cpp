#include "qvxml/licence/licence_check.h"

#include <atomic>
#include <cstdio>

#include "qvxml/core/exception.h"
#include "qvxml/core/format.h"

namespace QvXmlLib16 {

namespace {

constexpr int kLibraryVersion = 16;

// Set before main by generated code, hence constant-initialised; read by every entry point.
constinit std::atomic<int> g_unservedVersion{0};
constinit std::atomic<bool> g_hasUnservedVersion{false};
constinit std::atomic<bool> g_isEvaluation{false};

}  // namespace

void RegisterGeneratedCode(int generatedForVersion, LicenceKind kind) {
  if (generatedForVersion != kLibraryVersion) {
    g_unservedVersion.store(generatedForVersion, std::memory_order_relaxed);
    g_hasUnservedVersion.store(true, std::memory_order_release);
  }
  if (kind == LicenceKind_Evaluation && !g_isEvaluation.exchange(true)) {
    // Whether anybody reads it changes nothing.
    static_cast<void>(std::fputs(
        "QvXmlLib16: the generated code in this program is for evaluation only.\n", stderr));
  }
}

void CheckLicenceAndVersion() {
  if (!g_hasUnservedVersion.load(std::memory_order_acquire)) return;
  throw CQvException(
      FormatString("The generated code requires version %d of the library, this is version %d",
                   g_unservedVersion.load(std::memory_order_relaxed), kLibraryVersion));
}

const char* GetEvaluationComment() {
  return g_isEvaluation.load(std::memory_order_relaxed)
             ? "Created with an evaluation version of QvXmlLib16"
             : nullptr;
}

}  // namespace QvXmlLib16

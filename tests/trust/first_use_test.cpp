// The first use of the library in a process that is short of memory: what is made once and kept
// must not be kept half made. Each attempt is a process of its own; this program must not use the
// library.

#include <algorithm>
#include <climits>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <new>
#include <string>

#include "tests/samples/all_types_data.h"
#include "tests/samples/sample_documents.h"
#include "tests/trust/failing_allocator.h"
#include <gtest/gtest.h>
#include <sys/mman.h>
#include <sys/wait.h>
#include <unistd.h>

#include "qvxml/qvxml.h"

using namespace samples;
using qv_test::FailingAllocator;

namespace {

// What the processes share.
struct Board {
  long allocations;
  size_t length;
  char text[1 << 20];
};

using Use = std::string (*)();

std::string UseText() {
  const CSmartPtr<CAllTypes> object(new CAllTypes);
  FillAllTypes(*object);
  const std::string text = object->ToXml();
  object->FromXml(text.c_str());
  return object->ToXml();
}

std::string UseOtherFormats() {
  CSerializationContext ctx;
  ctx.GetJsonContext().SetWellFormed(true);
  std::string text;
  for (const SampleDocument& document : SampleDocuments()) {
    const CSmartPtr<CXmlObjectBase> object = document.make();
    object->FromXml(InNamespace(document.xml).c_str());
    object->FromXmlStream(object->ToFastInfosetStream(FInfoDecl_Plain));
    object->FromJson(object->ToJson(true, EOL_LF, ctx).c_str(), ctx);
    text += object->ToJson(true, EOL_LF, ctx);
  }
  return text;
}

std::string UseFailures() {
  std::string text;
  for (const char* xml : {"<a>", "<node/>", "<node id=\"x\"/>"}) {
    try {
      CSmartPtr<CXmlObjectBase>(SampleDocuments().front().make())->FromXml(xml);
    } catch (const CQvException& failure) {
      text += failure.GetFullMessage();
    }
  }
  try {
    TestRegEx("a", "((unclosed");
  } catch (const CQvException& failure) {
    text += failure.GetFullMessage();
  }
  // No "%ls": the C library keeps its conversions of ASCII for good when those of the locale do not
  // fit into memory at their first use.
  return text + FormatString("%s %.3f", "\xC3\xA4", 1.5);
}

// Never returns. The exit status is 0 when the use after the shortage gives `board`'s text.
[[noreturn]] void RunShort(Use use, long number, bool forEver, const Board& board) {
  FailingAllocator::Arm(number, forEver);
  try {
    use();
  } catch (const std::bad_alloc&) {
  } catch (const CQvException&) {
  } catch (...) {
    _exit(3);
  }
  FailingAllocator::Disarm();
  try {
    const std::string text = use();
    _exit(text == std::string(board.text, board.length) ? 0 : 1);
  } catch (...) {
    _exit(2);
  }
}

[[noreturn]] void RunWithMemory(Use use, Board& board) {
  FailingAllocator::Arm(LONG_MAX, false);
  const std::string text = use();
  board.allocations = FailingAllocator::Disarm();
  if (text.size() > sizeof board.text) _exit(4);
  board.length = text.size();
  std::memcpy(board.text, text.data(), text.size());
  _exit(0);
}

template <class TRun>
int StatusOf(const TRun& run) {
  const pid_t child = fork();
  if (child == 0) run();
  int status = -1;
  EXPECT_EQ(waitpid(child, &status, 0), child);
  return status;
}

TEST(FirstUse, IsNotSpoiltByShortMemory) {
  const struct {
    const char* name;
    Use use;
  } rows[] = {{"text", UseText}, {"other formats", UseOtherFormats}, {"failures", UseFailures}};
  auto* const board = static_cast<Board*>(
      mmap(nullptr, sizeof(Board), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0));
  ASSERT_NE(board, MAP_FAILED);
  const char* const text = std::getenv("QVXML_SHORT_MEMORY_POINTS");
  const long points = text != nullptr ? std::atol(text) : 60;
  long attempts = 0;
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    ASSERT_EQ(StatusOf([&] { RunWithMemory(row.use, *board); }), 0);
    ASSERT_GT(board->allocations, 100);
    const long step = points > 0 ? std::max(board->allocations / points, 1L) : 1;
    for (long number = 1; number <= board->allocations; number += step) {
      for (const bool forEver : {false, true}) {
        EXPECT_EQ(StatusOf([&] { RunShort(row.use, number, forEver, *board); }), 0)
            << "allocation " << number << " of " << board->allocations
            << (forEver ? ", for ever" : "");
        ++attempts;
      }
    }
  }
  munmap(board, sizeof(Board));
  std::printf("%ld failing allocations\n", attempts);
}

}  // namespace

// Many threads with objects of their own and shared contexts, documents, objects and failures: all
// must come out as on one thread. The races themselves are for the thread sanitizer to see.
//
// QVXML_THREADS=full makes every test about ten times as long.

#include <array>
#include <atomic>
#include <cstdlib>
#include <cstring>
#include <exception>
#include <memory>
#include <string>
#include <vector>

#include "tests/samples/sample_documents.h"
#include "tests/samples/tree.h"
#include "tests/support/test_locale.h"
#include "tests/threads/at_once.h"
#include "tests/threads/sample_work.h"
#include <gtest/gtest.h>
#include <locale.h>
#include <sys/wait.h>

#include "qvxml/qvxml.h"

// The search path of locales that glibc makes anew in setlocale is its own to free.
extern "C" const char* __lsan_default_suppressions() { return "leak:__argz_add_sep\n"; }

using namespace samples;
using thread_test::CountWork;
using thread_test::DoWork;
using thread_test::RunAtOnce;
using thread_test::SharedContexts;

namespace {

constexpr size_t kThreads = 64;

size_t Scale(size_t shortForm, size_t fullForm) {
  const char* const form = std::getenv("QVXML_THREADS");
  return form != nullptr && std::strcmp(form, "full") == 0 ? fullForm : shortForm;
}

// Counts what went wrong on any thread and keeps one example; assertions are for one thread.
class Faults {
 public:
  void Expect(bool isRight, const std::string& description) {
    if (!isRight && m_count.fetch_add(1) == 0) m_first = description;
  }
  // Once the threads have ended.
  void Check() const { EXPECT_EQ(m_count, 0) << m_first; }

 private:
  std::atomic<int> m_count{0};
  std::string m_first;
};

// A locale with a decimal comma, whose text is UTF-8 as that of "C" is here: so no result may
// depend on it. While it lives one thread switches the process to it and back all the time, and
// other threads may use it on their own.
class SwitchingLocale {
 public:
  SwitchingLocale() : m_made("de_DE", "UTF-8") {
    if (!m_made.IsAvailable()) return;
    // Looks for C.UTF-8, once for the process, while LOCPATH does not hide it.
    { const CInvariantLocaleScope made; }
    setenv("LOCPATH", m_made.GetFolder(), 1);
    m_own = newlocale(LC_ALL_MASK, "de_DE.UTF-8", nullptr);
    m_thread = std::jthread([](const std::stop_token& stop) {
      while (!stop.stop_requested()) {
        std::setlocale(LC_ALL, "de_DE.UTF-8");
        std::this_thread::yield();
        std::setlocale(LC_ALL, "C");
      }
    });
  }
  ~SwitchingLocale() {
    if (m_thread.joinable()) {
      m_thread.request_stop();
      m_thread.join();
    }
    unsetenv("LOCPATH");
    if (m_own != nullptr) freelocale(m_own);
  }
  SwitchingLocale(const SwitchingLocale&) = delete;
  SwitchingLocale& operator=(const SwitchingLocale&) = delete;

  void UseOnThisThread() const {
    if (m_own != nullptr) uselocale(m_own);
  }

 private:
  qv_test::CTestLocale m_made;
  locale_t m_own = nullptr;
  std::jthread m_thread;
};

TEST(Threads, RoundTripsAreThoseOfOneThread) {
  const SharedContexts contexts;
  std::vector<std::string> expected;
  for (size_t work = 0; work < CountWork(); ++work) expected.push_back(DoWork(work, contexts));
  const size_t rounds = Scale(40, 800);
  Faults faults;
  {
    const SwitchingLocale locale;
    RunAtOnce(kThreads, [&](size_t thread) {
      if (thread % 4 == 1) locale.UseOnThisThread();
      for (size_t round = 0; round < rounds; ++round) {
        const size_t work = (round + thread * 7) % expected.size();
        const std::string result = DoWork(work, contexts);
        faults.Expect(result == expected[work], result + "\ninstead of\n" + expected[work]);
      }
      uselocale(LC_GLOBAL_LOCALE);
    });
  }
  faults.Check();
  RecordProperty("round_trips", static_cast<int>(kThreads * rounds));
}

// A node with children of which the first is a child of all others too.
CSmartPtr<CNode> MakeSharedGraph() {
  const CSmartPtr<CNode> root(new CNode);
  root->SetId(0);
  for (long i = 1; i <= 20; ++i) {
    CNode& child = root->GetNode().AddNew();
    child.SetId(i);
    child.SetLabel("label " + std::to_string(i));
    if (i > 1) child.GetNode().Add(CSmartPtr<CNode>(root->GetNode().Item(0)));
  }
  return root;
}

TEST(Threads, SharedObjectsAreHeldAndReleasedEverywhere) {
  const long before = CInstanceMonitor::GetCount("CXmlObjectBase");
  const size_t rounds = Scale(30, 300);
  Faults faults;
  CSmartPtr<CNode> graph = MakeSharedGraph();
  const std::string expected = graph->ToXml();
  std::vector<CSmartPtr<CNode>> handles(kThreads, graph);
  // Whichever thread is last destroys it.
  graph.reset();
  RunAtOnce(kThreads, [&](size_t thread) {
    CSmartPtr<CNode> mine = std::move(handles[thread]);
    for (size_t round = 0; round < rounds; ++round) {
      const CSmartPtr<CNode> parent(new CNode);
      for (CNode& child : mine->GetNode()) parent->GetNode().Add(CSmartPtr<CNode>(&child));
      QvVariant value;
      value.SetXmlObject(mine.Ptr());
      const QvVariant copy(value);
      faults.Expect(copy.PeekXmlObject() == mine.Ptr(), "another object");
      if (round % 10 == thread % 10) faults.Expect(mine->ToXml() == expected, mine->ToXml());
    }
  });
  faults.Check();
  EXPECT_EQ(CInstanceMonitor::GetCount("CXmlObjectBase"), before);
}

TEST(Threads, OneDocumentIsReadOnMany) {
  const std::string xml =
      R"(<node xmlns="urn:qvxml:samples" id="1"><label>a</label><node id="2"><label/></node><node id="3"/></node>)";
  CXmlDocument document;
  document.LoadXml(xml.c_str());
  CSerializationContext context;
  context.SetDefaultNamespaceURI("urn:qvxml:samples");
  const size_t rounds = Scale(20, 200);
  Faults faults;
  RunAtOnce(kThreads, [&](size_t) {
    for (size_t round = 0; round < rounds; ++round) {
      const CSmartPtr<CNode> node(new CNode);
      node->FromXmlElement(document.GetDocumentElement());
      const std::string written = node->ToXml(false, false, EOL_LF, context);
      faults.Expect(written == xml, written);
      faults.Expect(document.LookupNamespaceFromAlias("") == "urn:qvxml:samples", "prefix");
    }
  });
  faults.Check();
}

TEST(Threads, ContextsMakeTheirPartsOnce) {
  const long before = CInstanceMonitor::GetTotal();
  Faults faults;
  for (size_t round = Scale(20, 200); round != 0; --round) {
    const CSerializationContext context;
    std::array<const void*, 3> parts[kThreads];
    RunAtOnce(kThreads, [&](size_t thread) {
      const CSerializationContext early(context);
      parts[thread] = {&context.GetJsonContext(), &context.GetFIContext(),
                       context.GetAdditionalRootAttributes().Ptr()};
      CSerializationContext late;
      late = context;
      faults.Expect(&late.GetJsonContext() == parts[thread][0], "a copy does not share");
      faults.Expect(early.GetFIContext().GetElementMaxAddLength() == 6, "a broken copy");
    });
    for (const auto& made : parts) faults.Expect(made == parts[0], "made twice");
  }
  faults.Check();
  EXPECT_EQ(CInstanceMonitor::GetTotal(), before);
}

TEST(Threads, FailuresMayBePassedOn) {
  std::exception_ptr failure;
  std::string expected;
  try {
    const CSmartPtr<CNode> node(new CNode);
    node->FromXml(R"(<node xmlns="urn:qvxml:samples"><node id="x"/></node>)");
  } catch (const CQvException& caught) {
    expected = caught.GetFullMessage();
    failure = std::current_exception();
  }
  ASSERT_NE(expected, "");
  Faults faults;
  RunAtOnce(kThreads, [&, own = failure](size_t) {
    for (size_t round = Scale(20, 200); round != 0; --round) {
      try {
        std::rethrow_exception(own);
      } catch (const CQvException& caught) {
        const std::unique_ptr<const CQvException> clone(caught.Clone());
        faults.Expect(clone->GetFullMessage() == expected, clone->GetFullMessage());
      }
    }
  });
  faults.Check();
}

// All that the process with that number of threads prints, in both streams, then its exit code.
std::string RunFirstUse(size_t threads) {
  const std::string command =
      std::string("'") + QVXML_FIRST_USE + "' " + std::to_string(threads) + " 2>&1";
  std::string text;
  FILE* const output = popen(command.c_str(), "r");
  if (output == nullptr) return "cannot be started";
  char piece[256];
  while (std::fgets(piece, sizeof piece, output) != nullptr) text += piece;
  return text + "exit " + std::to_string(WEXITSTATUS(pclose(output)));
}

TEST(Threads, FirstUsesOfAProcessMeet) {
  const std::string expected = RunFirstUse(1);
  // The registration's line, once; the digest; the code.
  const std::string line =
      "QvXmlLib16: the generated code in this program is for evaluation only.\n";
  ASSERT_EQ(expected.substr(0, line.size()), line);
  ASSERT_EQ(expected.substr(line.size() + 32), "\nexit 0") << expected;
  for (size_t run = Scale(20, 400); run != 0; --run) {
    ASSERT_EQ(RunFirstUse(run % 2 == 0 ? kThreads : 8), expected);
  }
}

}  // namespace

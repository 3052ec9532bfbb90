// The small fixed workloads whose instructions guard.py counts: what is named by the second
// argument is done on the document of the first, and only what runs within GuardedWork is counted.

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <functional>
#include <string>

#include "bench/documents/bound_document.h"

using namespace QvXmlLib16;

namespace {

constexpr int kRounds = 10;

struct CWorkload {
  const char* name;
  std::function<void()> work;
};

}  // namespace

// Found by its name.
extern "C" __attribute__((noinline)) void GuardedWork(const std::function<void()>& work) {
  for (int round = 0; round < kRounds; ++round) work();
}

int main(int argumentCount, char** arguments) {
  if (argumentCount != 3) return EXIT_FAILURE;
  try {
    const bench::CBoundDocument document = bench::ReadDocument(arguments[1]);
    bench::CheckRoundTrip(document);
    const CSmartPtr<CXmlObjectBase> object = document.Read();
    CSerializationContext ctx = document.ctx;
    ctx.GetJsonContext().SetWellFormed(true);
    ctx.GetFIContext().SetSuggestedValues();
    const CWorkload workloads[] = {
        {"load",
         [&] {
           CXmlDocument tree;
           tree.LoadXml(document.xml.c_str());
         }},
        {"FromXml", [&] { document.Read(); }},
        {"ToXml", [&] { object->ToXml(true, true, EOL_LF, ctx); }},
        {"Json",
         [&] {
           const CSmartPtr<CXmlObjectBase> copy = document.makeObject();
           copy->FromJson(object->ToJson(false, EOL_LF, ctx).c_str(), ctx);
         }},
        {"FastInfoset",
         [&] {
           const CSmartPtr<CXmlObjectBase> copy = document.makeObject();
           copy->FromXmlStream(object->ToFastInfosetStream(FInfoDecl_None, ctx), ctx);
         }},
    };
    for (const CWorkload& workload : workloads) {
      if (std::strcmp(workload.name, arguments[2]) != 0) continue;
      // What happens once for the process is not counted.
      workload.work();
      GuardedWork(workload.work);
      return EXIT_SUCCESS;
    }
  } catch (const CQvException& failure) {
    std::fprintf(stderr, "%s\n", failure.GetFullMessage().c_str());
  }
  return EXIT_FAILURE;
}

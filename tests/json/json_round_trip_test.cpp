#include <string>
#include "tests/samples/all_types_data.h"
#include "tests/samples/sample_documents.h"
#include "tests/support/qv_gtest.h"
#include <gtest/gtest.h>
#include "qvxml/qvxml.h"
using namespace samples;
namespace {
TEST(X, Explore) {
  for (bool wf : {false, true}) for (int mode : {0,1,2}) for (bool format : {false,true}) {
    for (const auto& d : SampleDocuments()) {
      CSerializationContext ctx; ctx.SetDefaultNamespaceURI("urn:qvxml:samples");
      ctx.GetJsonContext().SetWellFormed(wf);
      ctx.GetJsonContext().SetSupportRoundtrip(JsonRoundTrip(mode));
      auto o = d.make(); std::string x = InNamespace(d.xml);
      o->FromXml(x.c_str());
      std::string json="?";
      try { json = o->ToJson(format, EOL_LF, ctx);
        auto p = d.make(); p->FromJson(json.c_str(), ctx);
        std::string y = p->ToXml(false,false,EOL_LF,ctx);
        if (x == y) { printf("%d%d%d OK\n", wf, mode, format); continue; }
        if(!format) printf("%d%d%d DIFF\n   %s\n   %s\n   %s\n", wf, mode, format, x.c_str(), json.c_str(), y.c_str());
        else printf("%d%d%d DIFF\n", wf,mode,format);
      } catch (const CQvException& e) { if(!format) printf("%d%d%d FAIL %s\n  %s\n  %s\n", wf,mode,format,x.c_str(), json.c_str(), e.GetFullMessage().c_str()); else printf("%d%d%d FAIL\n", wf,mode,format);}
    }
  }
}
}

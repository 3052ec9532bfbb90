#include "tests/samples/sample_documents.h"

#include "tests/samples/all_types.h"
#include "tests/samples/contact.h"
#include "tests/samples/envelope.h"
#include "tests/samples/measure.h"
#include "tests/samples/note.h"
#include "tests/samples/payment.h"
#include "tests/samples/settings.h"
#include "tests/samples/shapes.h"
#include "tests/samples/tree.h"

namespace samples {

#define XSI "http://www.w3.org/2001/XMLSchema-instance"
#define NIL " xmlns:AA=\"" XSI "\" AA:nil=\"true\""

const std::vector<SampleDocument>& SampleDocuments() {
  static const std::vector<SampleDocument> documents = {
      {Make<CNode>, R"(<node id="1"/>)"},
      {Make<CNode>,
       R"(<node id="1"><label>a</label><node id="2"><node id="3"/></node><node id="4"/></node>)"},
      {Make<CChain>, R"(<chain id="1"><chain><chain id="3"/></chain></chain>)"},
      {Make<CPayment>, "<payment><card>1234</card></payment>"},
      {Make<CPayment>, R"(<payment payer="me"><account>savings</account></payment>)"},
      {Make<CPayment>, R"(<payment><voucher code="X"/></payment>)"},
      {Make<CPayment>, "<payment><coin>1</coin><coin>2</coin><coin>2</coin></payment>"},
      {Make<CPayment>, R"(<payment payer="me"><shells xmlns="urn:sea">7</shells></payment>)"},
      {Make<CSettings>,
       "<settings><title>t</title><level>low</level><server><host>h</host></server></settings>"},
      {Make<CSettings>,
       "<settings><title>t</title><port>80</port><level>low</level><fallback>high</fallback>"
       "<server><host>h</host></server><mirror><host>m</host></mirror><note>1</note><note>2</note></settings>"},
      {Make<CNote>, "<note><due" NIL "/><remark><text>x</text></remark></note>"},
      {Make<CNote>, "<note><due>2024-02-29</due><pages>3</pages><remark author=\"a\"" NIL
                    "/><reply" NIL "/></note>"},
      {Make<CMeasure>, R"(<measure><length unit="m">-1.5</length></measure>)"},
      {Make<CMeasure>,
       R"(<measure><length unit="m">0</length><comment xml:lang="en">  as it
 stands </comment><grade>A</grade></measure>)"},
      {Make<CDrawing>, "<drawing><caption><text>c</text></caption></drawing>"},
      {Make<CDrawing>,
       R"(<drawing><legend columns="2"><text>l</text></legend><best xmlns:AA=")" XSI
       R"(" AA:type="squareType" id="s"><area>4</area><side>2</side></best><shape xmlns:AA=")" XSI
       R"(" AA:type="circleType"><area>3.5</area><radius>1</radius></shape></drawing>)"},
      {Make<CContact>, "<contact><name>n</name><phone>1</phone></contact>"},
      {Make<CContact>,
       R"(<contact id="7"><name>n</name><email>e</email><street>s</street><city>c</city><key>a</key><value>1</value><key>b</key><value>2</value><remark>r</remark></contact>)"},
      {Make<CEnvelope>, R"(<envelope hop="1"><header a="1" xmlns=""><x/>h</header></envelope>)"},
      {Make<CEnvelope>,
       R"(<envelope id="1" xmlns:AA="urn:o" AA:hop="2"><header xmlns="urn:h"/><p xmlns="urn:payload"/><subject>s</subject><x xmlns="urn:x"><y xmlns="">z</y></x><q xmlns="urn:q"/></envelope>)"},
  };
  return documents;
}

std::string InNamespace(std::string xml) {
  const size_t end = xml.find_first_of(" />");
  return xml.insert(end, " xmlns=\"urn:qvxml:samples\"");
}

void MakeSampleMetaData() {
  CPayment::GetMetaData(), CVoucher::GetMetaData();
  CSettings::GetMetaData(), CServer::GetMetaData(), CMirror::GetMetaData();
  CNote::GetMetaData(), CRemark::GetMetaData(), CReply::GetMetaData();
  CMeasure::GetMetaData(), CLength::GetMetaData(), CComment::GetMetaData(), CGrade::GetMetaData();
  CContact::GetMetaData(), CReach::GetMetaData(), CPlace::GetMetaData(), CFact::GetMetaData();
  CDrawing::GetMetaData(), CCircle::GetMetaData(), CSquare::GetMetaData();
  CCaption::GetMetaData(), CLegend::GetMetaData();
  CNode::GetMetaData(), CChain::GetMetaData(), CEnvelope::GetMetaData();
  CAllTypes::GetMetaData(), CTypedAttributes::GetMetaData(), CTypedLists::GetMetaData();
  CTypedOptionals::GetMetaData(), CTypedMandatories::GetMetaData();
  CTypedDefaults::GetMetaData(), CTypedNillables::GetMetaData();
}

}  // namespace samples

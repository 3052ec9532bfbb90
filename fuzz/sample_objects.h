// Objects of the sample classes: which class and which context bytes of the input choose, and what
// an object that was read must be worth when it is written and read again.

#ifndef FUZZ_SAMPLE_OBJECTS_H_
#define FUZZ_SAMPLE_OBJECTS_H_

#include <algorithm>
#include <cstdint>
#include <iterator>
#include <string>

#include "fuzz/fuzz_target.h"
#include "tests/samples/all_types.h"
#include "tests/samples/contact.h"
#include "tests/samples/envelope.h"
#include "tests/samples/measure.h"
#include "tests/samples/note.h"
#include "tests/samples/payment.h"
#include "tests/samples/sample_documents.h"
#include "tests/samples/settings.h"
#include "tests/samples/shapes.h"
#include "tests/samples/tree.h"

#include "qvxml/qvxml.h"

using ObjectPtr = QvXmlLib16::CSmartPtr<QvXmlLib16::CXmlObjectBase>;

namespace sample_objects {

using namespace QvXmlLib16;

inline ObjectPtr MakeElement() { return ObjectPtr(new CElement("any")); }

/// The letters from A on choose: every type, choice, all-group, nillable, simple content, model
/// groups, substitution, wildcards, recursion by a collection and by a member, untyped; then the
/// parts of the first by themselves, for short inputs.
inline ObjectPtr Make(uint8_t choice) {
  static constexpr ObjectPtr (*kMakers[])() = {samples::Make<samples::CAllTypes>,
                                               samples::Make<samples::CPayment>,
                                               samples::Make<samples::CSettings>,
                                               samples::Make<samples::CNote>,
                                               samples::Make<samples::CMeasure>,
                                               samples::Make<samples::CContact>,
                                               samples::Make<samples::CDrawing>,
                                               samples::Make<samples::CEnvelope>,
                                               samples::Make<samples::CNode>,
                                               samples::Make<samples::CChain>,
                                               MakeElement,
                                               samples::Make<samples::CTypedAttributes>,
                                               samples::Make<samples::CTypedOptionals>,
                                               samples::Make<samples::CTypedDefaults>,
                                               samples::Make<samples::CTypedLists>,
                                               samples::Make<samples::CTypedNillables>};
  return kMakers[(choice + 256u - 'A') % 256u % std::size(kMakers)]();
}

constexpr uint8_t kIgnoreNamespaces = 1, kIgnoreUnknown = 2, kIgnoreMissing = 4, kKeepCDATA = 8,
                  kWriteDefaults = 16, kNoDefaultNamespace = 32, kLocalNames = 64;

inline void SetOptions(CSerializationContext& ctx, uint8_t options) {
  const auto has = [options](uint8_t option) { return (options & option) != 0; };
  ctx.SetIgnoreNamespaces(has(kIgnoreNamespaces));
  ctx.SetIgnoreUnknownAttributes(has(kIgnoreUnknown));
  if (has(kIgnoreUnknown)) {
    ctx.SetIgnoreUnknownElements(true);
  } else {
    ctx.SetIgnoreMissingMandatoryElements(has(kIgnoreMissing));
  }
  ctx.SetIgnoreMissingChoice(has(kIgnoreMissing));
  ctx.SetIgnoreInvalidCollectionCounts(has(kIgnoreMissing));
  ctx.SetStripCDATA(!has(kKeepCDATA));
  ctx.SetWriteDefaultElementValues(has(kWriteDefaults));
  if (!has(kNoDefaultNamespace)) ctx.SetDefaultNamespaceURI("urn:qvxml:samples");
  if (has(kLocalNames)) ctx.SetSchemaType(SchemaType_LocalNames);
}

inline std::string TextOf(const CBinaryData& data) {
  return std::string(reinterpret_cast<const char*>(data.GetData()), data.GetLength());
}

/// "" when the call throws nothing, else all messages of the failure.
template <class TCall>
std::string FailureOf(const TCall& call) {
  try {
    call();
  } catch (const CQvException& failure) {
    return "failure " + failure.GetFullMessage();
  }
  return "";
}

inline std::string ToXml(const ObjectPtr& object, const CSerializationContext& ctx) {
  return TextOf(object->ToXmlStream(false, false, Encoding_UTF8, EOL_LF, ctx));
}

/// Of XML text: as it is read again, since tabs in attributes come back as blanks.
inline std::string Settled(std::string xml) {
  std::replace(xml.begin(), xml.end(), '\t', ' ');
  return xml;
}

/// Whether text may hold what is written without escapes, and then anything may come of it.
inline bool HasRawText(const std::string& xml) {
  return xml.find("<![CDATA[") != std::string::npos;
}

/// Whether an object that was read is written; only what reading tolerates may be in the way, such
/// as a group that ends early, bounds, which are checked in writing alone, and prefixes that are
/// part of a name where namespaces are not processed, which Fast Infoset cannot say.
template <class TWrite>
bool IsWritten(uint8_t options, const TWrite& write) {
  const std::string failure = FailureOf(write);
  if (failure.empty()) return true;
  const auto has = [&failure](const char* part) { return failure.find(part) != std::string::npos; };
  const bool isNameWithPrefix = (options & kLocalNames) != 0 && has("The name [");
  if ((options & kIgnoreMissing) == 0 && !isNameWithPrefix && !has("Invalid Value for count") &&
      !has("[fact] to XML\nThe Property [value] is mandatory")) {
    FuzzFailure("not written: " + failure);
  }
  return false;
}

/// Whether a carriage return may be lost in writing; in the name of a namespace that makes another
/// namespace. A length that looks like one counts too.
inline bool MayHoldCarriageReturn(const ObjectPtr& object) {
  const CSerializationContext ctx;
  return TextOf(object->ToFastInfosetStream(FInfoDecl_None, ctx)).find('\r') != std::string::npos;
}

/// Whether the failure is that of a year, which is written without padding and without the sign.
inline bool IsRefusedYear(const std::string& failure) {
  constexpr char kDate[] = "Invalid XSD Date [";
  const size_t date = failure.find(kDate);
  if (date == std::string::npos) return false;
  const size_t year = date + sizeof kDate - 1;
  return failure.find_first_not_of("0123456789", year) == failure.find(']', year);
}

/// What `read` makes of an object of the class must have the XML text of `object`.
template <class TRead>
void ExpectReread(const char* format, const ObjectPtr& object, uint8_t choice,
                  const CSerializationContext& ctx, const TRead& read) {
  const std::string xml = Settled(ToXml(object, ctx));
  const ObjectPtr copy = Make(choice);
  std::string outcome = FailureOf([&] { read(*copy); });
  if (outcome.empty()) outcome = Settled(ToXml(copy, ctx));
  if (outcome == xml || IsRefusedYear(outcome) || MayHoldCarriageReturn(object)) return;
  FuzzFailure(std::string(format) + " became\n" + outcome + "\nnot\n" + xml);
}

inline void ExpectXmlReread(const ObjectPtr& object, uint8_t choice,
                            const CSerializationContext& ctx) {
  const CBinaryData xml = object->ToXmlStream(false, false, Encoding_UTF8, EOL_LF, ctx);
  ExpectReread("XML", object, choice, ctx,
               [&](CXmlObjectBase& copy) { copy.FromXmlStream(xml, ctx); });
}

/// Expects the same octets too.
inline void ExpectFastInfosetReread(const ObjectPtr& object, uint8_t choice,
                                    const CSerializationContext& ctx) {
  const CBinaryData octets = object->ToFastInfosetStream(FInfoDecl_None, ctx);
  ExpectReread("Fast Infoset", object, choice, ctx, [&](CXmlObjectBase& copy) {
    copy.FromXmlStream(octets, ctx);
    if (copy.ToFastInfosetStream(FInfoDecl_None, ctx) != octets) {
      FuzzFailure("other octets for " + ToXml(object, ctx));
    }
  });
}

/// With the context's JSON options.
inline void ExpectJsonReread(const ObjectPtr& object, uint8_t choice,
                             const CSerializationContext& ctx) {
  const CBinaryData json = object->ToJsonStream(false, Encoding_UTF8, EOL_LF, ctx);
  ExpectReread("JSON", object, choice, ctx,
               [&](CXmlObjectBase& copy) { copy.FromJsonStream(json, ctx); });
}

/// Calls `run`, and then expects that no object is left.
template <class TRun>
void ExpectNothingLeft(const TRun& run) {
  samples::MakeSampleMetaData();
  static const long s_live = CInstanceMonitor::GetTotal();
  run();
  if (CInstanceMonitor::GetTotal() == s_live) return;
  std::string dump;
  CInstanceMonitor::Dump(dump);
  FuzzFailure("left behind:\n" + dump);
}

}  // namespace sample_objects

#endif  // FUZZ_SAMPLE_OBJECTS_H_

// Which licence the generated code in this process has.

#ifndef QVXML_LICENCE_LICENCE_CHECK_H_
#define QVXML_LICENCE_LICENCE_CHECK_H_

#include "qvxml/support/export.h"

namespace QvXmlLib16 {

/// Kind of licence that code was generated under. The numbers are fixed.
enum LicenceKind : int {
  LicenceKind_Licensed = 0,
  /// One line on stderr at the first registration, and a comment in each document written, except
  /// Fast Infoset and JSON of CJsonContext::SetWellFormed(true), which get none.
  LicenceKind_Evaluation = 1,
};

/// Registers generated code: the major version of the library it was generated for, and its
/// licence.
///
/// Generated code calls it once at start-up, from any thread, also before main. Nothing needs to be
/// registered: without it everything works and nothing is added. Never throws: a version that this
/// library cannot serve is reported by each entry point, as an exception that can be caught. Where
/// code of several generations registers, each is checked and one evaluation is enough for the
/// comment.
QVXML_API void RegisterGeneratedCode(int generatedForVersion, LicenceKind kind);

/// Throws CQvException, naming both versions, when code was registered that this library cannot
/// serve. Called at the start of every entry point.
QVXML_API void CheckLicenceAndVersion();

/// Text of the comment that each document gets, or null when none is due. Fast Infoset and JSON of
/// CJsonContext::SetWellFormed(true) leave it out.
QVXML_API const char* GetEvaluationComment();

}  // namespace QvXmlLib16

#endif  // QVXML_LICENCE_LICENCE_CHECK_H_

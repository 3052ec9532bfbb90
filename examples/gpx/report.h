// A failure as a user wants to see it.

#ifndef EXAMPLES_GPX_REPORT_H_
#define EXAMPLES_GPX_REPORT_H_

#include <qvxml/qvxml.h>

/// Prints to stderr what went wrong, where in the document, and what was being done meanwhile.
void PrintFailure(const char* file, const QvXmlLib16::CQvException& failure);

#endif  // EXAMPLES_GPX_REPORT_H_

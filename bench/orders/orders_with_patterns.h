// The document class of orders.xsd with the pattern facets that orders.h leaves out.

#ifndef BENCH_ORDERS_ORDERS_WITH_PATTERNS_H_
#define BENCH_ORDERS_ORDERS_WITH_PATTERNS_H_

#include <qvxml/qvxml.h>

QvXmlLib16::CSmartPtr<QvXmlLib16::CXmlObjectBase> MakeOrdersWithPatterns();

#endif  // BENCH_ORDERS_ORDERS_WITH_PATTERNS_H_

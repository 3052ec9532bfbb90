// The same generated classes with the pattern facets of the schema, in a namespace of their own.
#define QVXML_BENCH_PATTERNS
#define orders orders_with_patterns
#include "bench/orders/orders.cpp"
#undef orders

#include "bench/orders/orders_with_patterns.h"

QvXmlLib16::CSmartPtr<QvXmlLib16::CXmlObjectBase> MakeOrdersWithPatterns() {
  return new orders_with_patterns::COrders;
}

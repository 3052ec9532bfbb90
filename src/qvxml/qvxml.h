// The whole public interface in one include; what generated code includes.

#ifndef QVXML_QVXML_H_
#define QVXML_QVXML_H_

#include "qvxml/binding/facet_checks.h"
#include "qvxml/binding/primitive_restrictions.h"
#include "qvxml/binding/serialization_context.h"
#include "qvxml/binding/xsd_pattern.h"
#include "qvxml/core/error_path_provider.h"
#include "qvxml/core/exception.h"
#include "qvxml/core/format.h"
#include "qvxml/core/item_type.h"
#include "qvxml/core/locale_text.h"
#include "qvxml/core/smart_ptr.h"
#include "qvxml/core/text.h"
#include "qvxml/core/unicode.h"
#include "qvxml/core/value/conversions.h"
#include "qvxml/core/value/item_traits.h"
#include "qvxml/core/value/variant.h"
#include "qvxml/core/whitespace.h"
#include "qvxml/support/critical_section.h"
#include "qvxml/support/instance_monitor.h"
#include "qvxml/support/md5.h"
#include "qvxml/types/base64.h"
#include "qvxml/types/big_integer.h"
#include "qvxml/types/binary_data.h"
#include "qvxml/types/calendar.h"
#include "qvxml/types/date_time.h"
#include "qvxml/types/date_time_span.h"
#include "qvxml/types/decimal.h"
#include "qvxml/xml/compression.h"
#include "qvxml/xml/expat_reader.h"
#include "qvxml/xml/xml_attribute.h"
#include "qvxml/xml/xml_document.h"
#include "qvxml/xml/xml_element.h"

#endif  // QVXML_QVXML_H_

// The orders document as plain structs: what a program without generated classes fills by hand from
// another library's parser. Numbers, dates and enumerations are typed as in the generated classes,
// except that a decimal is a double.
//
// Each struct lists its members once, in Describe; the visitors of the peers read and write with
// that: Attribute(name, member), Element(name, member), where a member is a leaf, another struct,
// an optional or a vector of either.

#ifndef BENCH_ORDERS_PLAIN_ORDERS_H_
#define BENCH_ORDERS_PLAIN_ORDERS_H_

#include <array>
#include <charconv>
#include <cstdio>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <type_traits>
#include <vector>

namespace plain {

/// A name as XML has it, with its prefix, and as JSON has it, without.
struct CName {
  constexpr CName(const char* text) : qualified(text), local(text) {
    local.remove_prefix(local.find(':') + 1);
  }
  const char* qualified;
  std::string_view local;
};

enum class EAddressKind { e_billing, e_shipping };
enum class ECountry { e_DE, e_FR, e_PL, e_BR, e_US, e_JP };
enum class EStatus { e_pending, e_confirmed, e_shipped, e_delivered, e_cancelled };
enum class ECurrency { e_EUR, e_USD, e_JPY, e_GBP };

struct CDate {
  int year = 0, month = 0, day = 0;
};
/// In UTC.
struct CDateTime {
  CDate date;
  int hour = 0, minute = 0, second = 0;
};

struct CAddress {
  template <class TVisitor>
  void Describe(TVisitor& visitor) {
    visitor.Attribute("kind", kind);
    visitor.Element("c:street", street);
    visitor.Element("c:city", city);
    visitor.Element("c:region", region);
    visitor.Element("c:postalCode", postalCode);
    visitor.Element("c:country", country);
  }
  EAddressKind kind{};
  std::string street, city;
  std::optional<std::string> region;
  std::string postalCode;
  ECountry country{};
};

struct CCustomer {
  template <class TVisitor>
  void Describe(TVisitor& visitor) {
    visitor.Attribute("ref", ref);
    visitor.Attribute("vip", vip);
    visitor.Element("c:name", name);
    visitor.Element("c:email", email);
    visitor.Element("c:billing", billing);
    visitor.Element("c:shipping", shipping);
  }
  std::string ref;
  std::optional<bool> vip;
  std::string name;
  std::optional<std::string> email;
  CAddress billing;
  std::optional<CAddress> shipping;
};

struct CItem {
  template <class TVisitor>
  void Describe(TVisitor& visitor) {
    visitor.Attribute("sku", sku);
    visitor.Attribute("line", line);
    visitor.Element("description", description);
    visitor.Element("quantity", quantity);
    visitor.Element("unitPrice", unitPrice);
    visitor.Element("weight", weight);
    visitor.Element("taxRate", taxRate);
    visitor.Element("backordered", backordered);
    visitor.Element("shipDate", shipDate);
    visitor.Element("note", note);
  }
  std::string sku;
  int line = 0;
  std::string description;
  int quantity = 0;
  double unitPrice = 0, weight = 0, taxRate = 0;
  bool backordered = false;
  std::optional<CDate> shipDate;
  std::optional<std::string> note;
};

struct CItems {
  template <class TVisitor>
  void Describe(TVisitor& visitor) {
    visitor.Element("item", item);
  }
  std::vector<CItem> item;
};

struct CTags {
  template <class TVisitor>
  void Describe(TVisitor& visitor) {
    visitor.Element("tag", tag);
  }
  std::vector<std::string> tag;
};

struct COrder {
  template <class TVisitor>
  void Describe(TVisitor& visitor) {
    visitor.Attribute("id", id);
    visitor.Attribute("status", status);
    visitor.Attribute("priority", priority);
    visitor.Element("customer", customer);
    visitor.Element("placed", placed);
    visitor.Element("due", due);
    visitor.Element("currency", currency);
    visitor.Element("discount", discount);
    visitor.Element("total", total);
    visitor.Element("comment", comment);
    visitor.Element("tags", tags);
    visitor.Element("items", items);
  }
  int id = 0;
  EStatus status{};
  bool priority = false;
  CCustomer customer;
  CDateTime placed;
  CDate due;
  ECurrency currency{};
  std::optional<double> discount;
  double total = 0;
  std::optional<std::string> comment;
  std::optional<CTags> tags;
  CItems items;
};

struct COrders {
  template <class TVisitor>
  void Describe(TVisitor& visitor) {
    visitor.Attribute("version", version);
    visitor.Attribute("generated", generated);
    visitor.Attribute("source", source);
    visitor.Element("order", order);
  }
  double version = 0;
  CDateTime generated;
  std::string source;
  std::vector<COrder> order;
};

constexpr char kRootName[] = "orders";
constexpr char kOrdersNamespace[] = "http://example.org/2024/orders";
constexpr char kCommonNamespace[] = "http://example.org/2024/common";

template <class T>
struct TIsOptional : std::false_type {};
template <class T>
struct TIsOptional<std::optional<T>> : std::true_type {};
template <class T>
struct TIsVector : std::false_type {};
template <class T>
struct TIsVector<std::vector<T>> : std::true_type {};

template <class T, class TVisitor>
concept Described = requires(T& value, TVisitor& visitor) {
  value.Describe(visitor);
};

// Texts of leaves.

[[noreturn]] inline void Refuse(std::string_view text) {
  throw std::runtime_error("not expected: " + std::string(text));
}

inline constexpr const char* kEnumTexts[][6] = {
    {"billing", "shipping"},
    {"DE", "FR", "PL", "BR", "US", "JP"},
    {"pending", "confirmed", "shipped", "delivered", "cancelled"},
    {"EUR", "USD", "JPY", "GBP"}};
constexpr auto& TextsOf(EAddressKind) { return kEnumTexts[0]; }
constexpr auto& TextsOf(ECountry) { return kEnumTexts[1]; }
constexpr auto& TextsOf(EStatus) { return kEnumTexts[2]; }
constexpr auto& TextsOf(ECurrency) { return kEnumTexts[3]; }

template <class T>
void ParseNumber(std::string_view text, T& value) {
  const char* const end = text.data() + text.size();
  if (std::from_chars(text.data(), end, value).ptr != end) Refuse(text);
}

inline void Parse(std::string_view text, std::string& value) { value.assign(text); }
inline void Parse(std::string_view text, int& value) { ParseNumber(text, value); }
inline void Parse(std::string_view text, double& value) { ParseNumber(text, value); }
inline void Parse(std::string_view text, bool& value) {
  value = text == "true";
  if (!value && text != "false") Refuse(text);
}
inline void Parse(std::string_view text, CDate& value) {
  if (text.size() != 10) Refuse(text);
  ParseNumber(text.substr(0, 4), value.year);
  ParseNumber(text.substr(5, 2), value.month);
  ParseNumber(text.substr(8, 2), value.day);
}
inline void Parse(std::string_view text, CDateTime& value) {
  if (text.size() != 20) Refuse(text);
  Parse(text.substr(0, 10), value.date);
  ParseNumber(text.substr(11, 2), value.hour);
  ParseNumber(text.substr(14, 2), value.minute);
  ParseNumber(text.substr(17, 2), value.second);
}
template <class TEnum>
requires std::is_enum_v<TEnum>
void Parse(std::string_view text, TEnum& value) {
  int index = 0;
  for (const char* candidate : TextsOf(TEnum())) {
    if (candidate != nullptr && text == candidate) {
      value = static_cast<TEnum>(index);
      return;
    }
    ++index;
  }
  Refuse(text);
}

/// Room for the text of any leaf but a string, NUL included.
using CBuffer = std::array<char, 40>;

// Each returns text that ends in a NUL, in `buffer` where it needs one.

inline const char* Format(const std::string& value, CBuffer&) { return value.c_str(); }
template <class T>
requires std::is_arithmetic_v<T>
const char* Format(T value, CBuffer& buffer) {
  *std::to_chars(buffer.data(), buffer.data() + buffer.size() - 1, value).ptr = '\0';
  return buffer.data();
}
inline const char* Format(bool value, CBuffer&) { return value ? "true" : "false"; }

/// Writes that many digits and returns what follows them.
inline char* PutDigits(char* out, int count, int value) {
  for (int place = count - 1; place >= 0; --place, value /= 10) {
    out[place] = static_cast<char>('0' + value % 10);
  }
  return out + count;
}
inline char* Put(char* out, const CDate& value) {
  out = PutDigits(out, 4, value.year);
  *out++ = '-';
  out = PutDigits(out, 2, value.month);
  *out++ = '-';
  return PutDigits(out, 2, value.day);
}
inline const char* Format(const CDate& value, CBuffer& buffer) {
  *Put(buffer.data(), value) = '\0';
  return buffer.data();
}
inline const char* Format(const CDateTime& value, CBuffer& buffer) {
  char* out = Put(buffer.data(), value.date);
  *out++ = 'T';
  out = PutDigits(out, 2, value.hour);
  *out++ = ':';
  out = PutDigits(out, 2, value.minute);
  *out++ = ':';
  out = PutDigits(out, 2, value.second);
  *out++ = 'Z';
  *out = '\0';
  return buffer.data();
}
template <class TEnum>
requires std::is_enum_v<TEnum>
const char* Format(TEnum value, CBuffer&) { return TextsOf(value)[static_cast<int>(value)]; }

}  // namespace plain

#endif  // BENCH_ORDERS_PLAIN_ORDERS_H_

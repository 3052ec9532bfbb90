#include <cstdio>
#include <cstdlib>
#include <memory>

#include "bench/orders/peers.h"
#include "bench/orders/plain_orders.h"

#if defined(QVXML_BENCH_RAPIDJSON)
#include <rapidjson/document.h>
#include <rapidjson/stringbuffer.h>
#include <rapidjson/writer.h>
#endif
#if defined(QVXML_BENCH_NLOHMANN)
#include <nlohmann/json.hpp>
#endif

namespace bench {

namespace {

using plain::CBuffer;
using plain::CName;

// Attributes have an @ before their names.
[[maybe_unused]] std::string AttributeKey(CName name) { return "@" + std::string(name.local); }

// Reads structs from the objects of a tree. TTree tells how: Find gives a member of an object or
// null, ForEach visits the items of an array, Get converts a leaf that JSON has a type for, GetText
// those that are strings.
template <class TTree>
class TReading {
 public:
  using CNode = typename TTree::CNode;
  explicit TReading(const CNode& object) : m_object(object) {}

  template <class T>
  void Attribute(CName name, T& member) {
    Member(AttributeKey(name), member);
  }
  template <class T>
  void Element(CName name, T& member) {
    Member(name.local, member);
  }

 private:
  template <class T>
  void Member(std::string_view key, T& member) {
    const CNode* const node = TTree::Find(m_object, key);
    if constexpr (plain::TIsOptional<T>::value) {
      if (node != nullptr) Value(*node, member.emplace());
    } else {
      if (node == nullptr) plain::Refuse(key);
      Value(*node, member);
    }
  }
  template <class T>
  static void Value(const CNode& node, T& member) {
    if constexpr (plain::TIsVector<T>::value) {
      TTree::ForEach(node, [&member](const CNode& item) { Value(item, member.emplace_back()); });
    } else if constexpr (plain::Described<T, TReading>) {
      TReading reading(node);
      member.Describe(reading);
    } else if constexpr (std::is_arithmetic_v<T>) {
      member = TTree::template Get<T>(node);
    } else {
      plain::Parse(TTree::GetText(node), member);
    }
  }

  const CNode& m_object;
};

template <class TTree>
plain::COrders Read(const std::string& json) {
  plain::COrders orders;
  const typename TTree::CDocument document = TTree::Parse(json);
  const typename TTree::CNode* const root = TTree::Find(document, plain::kRootName);
  if (root == nullptr) plain::Refuse("the root");
  TReading<TTree> reading(*root);
  orders.Describe(reading);
  return orders;
}

template <class TTree>
void AddRows(const std::string& reading, const std::string& writing, const std::string& json,
             std::vector<CProgram>& programs) {
  const auto orders = std::make_shared<plain::COrders>(Read<TTree>(json));
  const std::string written = TTree::Write(*orders);
  plain::COrders readBack = Read<TTree>(written);
  if (readBack.order.size() != orders->order.size() || TTree::Write(readBack) != written) {
    std::fprintf(stderr, "%s changes the document\n", reading.c_str());
    std::exit(1);
  }
  programs.push_back({reading, [&json] {
                        plain::COrders result;
                        return TimeOf([&] { result = Read<TTree>(json); });
                      }});
  programs.push_back({writing, [orders] {
                        std::string result;
                        return TimeOf([&] { result = TTree::Write(*orders); });
                      }});
}

#if defined(QVXML_BENCH_RAPIDJSON)

struct CRapidTree {
  using CDocument = rapidjson::Document;
  using CNode = rapidjson::Value;

  static CDocument Parse(const std::string& json) {
    CDocument document;
    // Without the flag the last digit of some doubles is wrong, which is less than the others do.
    document.Parse<rapidjson::kParseFullPrecisionFlag>(json.data(), json.size());
    if (document.HasParseError()) plain::Refuse("RapidJSON");
    return document;
  }
  static const CNode* Find(const CNode& object, std::string_view key) {
    const auto member = object.FindMember(
        CNode(rapidjson::StringRef(key.data(), static_cast<rapidjson::SizeType>(key.size()))));
    return member != object.MemberEnd() ? &member->value : nullptr;
  }
  template <class TVisit>
  static void ForEach(const CNode& array, TVisit visit) {
    for (const CNode& item : array.GetArray()) visit(item);
  }
  template <class T>
  static T Get(const CNode& node) {
    return node.Get<T>();
  }
  static std::string_view GetText(const CNode& node) {
    return {node.GetString(), node.GetStringLength()};
  }
  static std::string Write(plain::COrders& orders);
};

class CRapidWriting {
 public:
  std::string WriteDocument(plain::COrders& orders) {
    m_writer.StartObject();
    Member(plain::kRootName, orders);
    m_writer.EndObject();
    return std::string(m_buffer.GetString(), m_buffer.GetSize());
  }
  template <class T>
  void Attribute(CName name, T& member) {
    Member(AttributeKey(name), member);
  }
  template <class T>
  void Element(CName name, T& member) {
    Member(name.local, member);
  }

 private:
  template <class T>
  void Member(std::string_view key, T& member) {
    if constexpr (plain::TIsOptional<T>::value) {
      if (member) Member(key, *member);
    } else {
      m_writer.Key(key.data(), static_cast<rapidjson::SizeType>(key.size()));
      Value(member);
    }
  }
  template <class T>
  void Value(T& member) {
    if constexpr (plain::TIsVector<T>::value) {
      m_writer.StartArray();
      for (auto& item : member) Value(item);
      m_writer.EndArray();
    } else if constexpr (plain::Described<T, CRapidWriting>) {
      m_writer.StartObject();
      member.Describe(*this);
      m_writer.EndObject();
    } else {
      Leaf(member);
    }
  }
  void Leaf(int value) { m_writer.Int(value); }
  void Leaf(double value) { m_writer.Double(value); }
  void Leaf(bool value) { m_writer.Bool(value); }
  void Leaf(const std::string& value) {
    m_writer.String(value.data(), static_cast<rapidjson::SizeType>(value.size()));
  }
  template <class T>
  void Leaf(const T& value) {
    CBuffer buffer;
    m_writer.String(plain::Format(value, buffer));
  }

  rapidjson::StringBuffer m_buffer;
  rapidjson::Writer<rapidjson::StringBuffer> m_writer{m_buffer};
};

std::string CRapidTree::Write(plain::COrders& orders) {
  return CRapidWriting().WriteDocument(orders);
}

#endif

#if defined(QVXML_BENCH_NLOHMANN)

class CNlohmannWriting {
 public:
  template <class T>
  static nlohmann::json ToNode(T& member) {
    if constexpr (plain::TIsVector<T>::value) {
      nlohmann::json array = nlohmann::json::array();
      for (auto& item : member) array.push_back(ToNode(item));
      return array;
    } else if constexpr (plain::Described<T, CNlohmannWriting>) {
      CNlohmannWriting writing;
      member.Describe(writing);
      return std::move(writing.m_object);
    } else if constexpr (std::is_arithmetic_v<T>) {
      return member;
    } else {
      CBuffer buffer;
      return plain::Format(member, buffer);
    }
  }
  template <class T>
  void Attribute(CName name, T& member) {
    Member(AttributeKey(name), member);
  }
  template <class T>
  void Element(CName name, T& member) {
    Member(std::string(name.local), member);
  }

 private:
  template <class T>
  void Member(std::string key, T& member) {
    if constexpr (plain::TIsOptional<T>::value) {
      if (member) Member(std::move(key), *member);
    } else {
      m_object[std::move(key)] = ToNode(member);
    }
  }

  nlohmann::json m_object = nlohmann::json::object();
};

struct CNlohmannTree {
  using CDocument = nlohmann::json;
  using CNode = nlohmann::json;

  static CDocument Parse(const std::string& json) { return nlohmann::json::parse(json); }
  static const CNode* Find(const CNode& object, std::string_view key) {
    const auto member = object.find(key);
    return member != object.end() ? &*member : nullptr;
  }
  template <class TVisit>
  static void ForEach(const CNode& array, TVisit visit) {
    for (const CNode& item : array) visit(item);
  }
  template <class T>
  static T Get(const CNode& node) {
    return node.get<T>();
  }
  static const std::string& GetText(const CNode& node) {
    return node.get_ref<const std::string&>();
  }
  static std::string Write(plain::COrders& orders) {
    nlohmann::json document;
    document[plain::kRootName] = CNlohmannWriting::ToNode(orders);
    return document.dump();
  }
};

#endif

}  // namespace

void AddJsonPeers([[maybe_unused]] const std::string& json, std::vector<CProgram>& programs) {
#if defined(QVXML_BENCH_RAPIDJSON)
  AddRows<CRapidTree>("RapidJSON, tree to structs", "RapidJSON, structs to text", json, programs);
#else
  programs.push_back({"RapidJSON", {}, "not installed"});
#endif
#if defined(QVXML_BENCH_NLOHMANN)
  AddRows<CNlohmannTree>("nlohmann-json, tree to structs", "nlohmann-json, structs to tree to text",
                         json, programs);
#else
  programs.push_back({"nlohmann-json", {}, "not installed"});
#endif
}

}  // namespace bench

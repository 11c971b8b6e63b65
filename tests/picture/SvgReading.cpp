#include "SvgReading.h"

#include <expat.h>

#include <memory>
#include <set>
#include <stdexcept>
#include <type_traits>

namespace {

/// The elements that are open, the outermost first.
struct OpenElements {
  XmlElement Root;
  std::vector<XmlElement*> vOpen{&Root};
};

void Begin(void* Data, const XML_Char* Name, const XML_Char** Attributes) {
  auto& Elements = *static_cast<OpenElements*>(Data);
  XmlElement& New = Elements.vOpen.back()->vChildren.emplace_back();
  New.Name = Name;
  for (; *Attributes != nullptr; Attributes += 2) {
    New.ssAttributes[Attributes[0]] = Attributes[1];
  }
  Elements.vOpen.push_back(&New);
}

void End(void* Data, const XML_Char* /*Name*/) {
  static_cast<OpenElements*>(Data)->vOpen.pop_back();
}

void AddText(void* Data, const XML_Char* Text, int Size) {
  static_cast<OpenElements*>(Data)->vOpen.back()->Text.append(Text, static_cast<std::size_t>(Size));
}

void Collect(const XmlElement& Element, const std::string& Name,
             std::vector<const XmlElement*>& vFoundReturn) {
  if (Element.Name == Name) {
    vFoundReturn.push_back(&Element);
  }
  for (const XmlElement& Current : Element.vChildren) {
    Collect(Current, Name, vFoundReturn);
  }
}

const std::map<std::string, std::set<std::string>>& KnownElements() {
  static const std::map<std::string, std::set<std::string>> Known{
      {"svg",
       {"xmlns", "id", "width", "height", "viewBox", "role", "aria-labelledby", "font-family",
        "fill", "stroke", "stroke-width"}},
      {"title", {"id"}},
      {"desc", {"id"}},
      {"style", {}},
      {"g",
       {"data-component", "data-alignment", "data-constraint", "data-line", "data-constituent",
        "class", "stroke"}},
      {"rect", {"x", "y", "width", "height", "rx", "fill", "stroke-width", "stroke-dasharray"}},
      {"path", {"d", "stroke-dasharray"}},
      {"text",
       {"x", "y", "font-size", "text-anchor", "direction", "font-style", "fill", "stroke"}}};
  return Known;
}

void CollectUnknown(const XmlElement& Element, std::vector<std::string>& vsUnknownReturn) {
  const auto Known = KnownElements().find(Element.Name);
  for (const auto& [Name, Value] : Element.ssAttributes) {
    if (Known == KnownElements().end() || Known->second.count(Name) == 0) {
      vsUnknownReturn.push_back(Element.Name + ' ' + Name);
    }
  }
  if (Known == KnownElements().end()) {
    vsUnknownReturn.push_back(Element.Name);
  }
  for (const XmlElement& Current : Element.vChildren) {
    CollectUnknown(Current, vsUnknownReturn);
  }
}

}  // namespace

XmlElement ReadXml(const std::string& Text) {
  const std::unique_ptr<std::remove_pointer_t<XML_Parser>, decltype(&XML_ParserFree)> Parser(
      XML_ParserCreate("UTF-8"), &XML_ParserFree);
  OpenElements Elements;
  XML_SetUserData(Parser.get(), &Elements);
  XML_SetElementHandler(Parser.get(), Begin, End);
  XML_SetCharacterDataHandler(Parser.get(), AddText);
  if (XML_Parse(Parser.get(), Text.data(), static_cast<int>(Text.size()), 1) == XML_STATUS_ERROR) {
    throw std::runtime_error(std::string("not well-formed: ") +
                             XML_ErrorString(XML_GetErrorCode(Parser.get())));
  }
  return Elements.Root.vChildren.front();
}

std::vector<const XmlElement*> ElementsOf(const XmlElement& Root, const std::string& Name) {
  std::vector<const XmlElement*> vFound;
  Collect(Root, Name, vFound);
  return vFound;
}

std::vector<std::string> UnknownIn(const XmlElement& Root) {
  std::vector<std::string> vsUnknown;
  CollectUnknown(Root, vsUnknown);
  return vsUnknown;
}

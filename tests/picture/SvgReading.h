#pragma once

#include <map>
#include <string>
#include <vector>

/// An element of an XML text, with the text directly in it.
struct XmlElement {
  std::string Name;
  std::map<std::string, std::string> ssAttributes;
  std::string Text;
  std::vector<XmlElement> vChildren;
};

/// Reads XML by a parser that takes nothing but well-formed texts. Throws `std::runtime_error`.
XmlElement ReadXml(const std::string& Text);

/// All elements of a name, in the order of the text.
std::vector<const XmlElement*> ElementsOf(const XmlElement& Root, const std::string& Name);

/// What a picture in SVG has that our pictures do not use: elements and attributes, as
/// "element attribute"; nothing where all is known.
std::vector<std::string> UnknownIn(const XmlElement& Root);

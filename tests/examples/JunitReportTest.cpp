// How text becomes XML.

#include "JunitReport.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

namespace {

TEST(JunitReport, WritesAnyTextAsXml) {
  const std::vector<std::pair<std::string, std::string>> Cases{
      {"", ""},
      {"the <\"car\"> & 'bus'", "the &lt;&quot;car&quot;&gt; &amp; 'bus'"},
      // White space keeps its place in attributes.
      {"a\tb\nc\rd e", "a&#9;b&#10;c&#13;d e"},
      // XML has neither control characters nor the last two code points of a plane.
      {std::string("a\x01\x1f\0b", 5),
       "a\xEF\xBF\xBD\xEF\xBF\xBD\xEF\xBF\xBD"
       "b"},
      {"\xEF\xBF\xBE!", "\xEF\xBF\xBD!"},
      {"\xEF\xBF\xBF", "\xEF\xBF\xBD"},
      {"\xEF\xBF\xBD \xC3\xB1", "\xEF\xBF\xBD \xC3\xB1"},
      // A byte that is not UTF-8 becomes what it becomes in JSON.
      {"\xFF", "\xEF\x9F\xBF"}};
  for (const auto& [Text, Expected] : Cases) {
    std::string Xml = "<";
    Examples::AppendXmlText(Text, Xml);
    EXPECT_EQ(Xml, '<' + Expected) << Text;
  }
}

}  // namespace

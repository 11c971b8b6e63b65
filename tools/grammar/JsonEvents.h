#pragma once

#include "Bytes.h"
#include "HeaderText.h"
#include "JsonText.h"
#include "RuleRecord.h"

#include <Splitter.h>

#include <cstddef>
#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

namespace Grammar {

/// Passes the object of a rule, value by value, to a handler, which writes it or compares it. The
/// handler has the operations of a `rapidjson::Writer`; names come as texts.
///
/// @code
/// rapidjson::StringBuffer Buffer;
/// rapidjson::Writer<rapidjson::StringBuffer> Writer(Buffer);
/// JsonEvents(Writer).HandRule(Record);
/// std::string(Buffer.GetString()).substr(0, 11);  // R"({"header":{)"
/// @endcode
template <typename HandlerT>
class JsonEvents {
 public:
  explicit JsonEvents(HandlerT& HandlerPassIn) : Handler(HandlerPassIn) {}

  void HandRule(const RuleRecord& Record) {
    const RuleForm& Form = Record.Form();
    const std::string Alignments = Form.AlignmentText();
    Handler.StartObject();
    HandHeader(Record.Header());
    Hand("comments", Record.Comments());
    Hand("slType", Form.SLType());
    Hand("tlType", Form.TLType());
    HandLabels("slLabels", Form.SLLabels());
    HandLabels("tlLabels", Form.TLLabels());
    Hand("alignments", Alignments);
    HandConstraints(Form);
    Hand("count", Record.Count());
    HandWords("slWords", Labelled(Record, "SL:"));
    HandWords("tlWords", Labelled(Record, "TL:"));
    Hand("cStructure", Labelled(Record, "C-Structure:"));
    HandWordLabels("slWordLabels", Form.SLLabels());
    HandWordLabels("tlWordLabels", Form.TLLabels());
    HandEmptyLists({"slParseLabels", "tlParseLabels"});
    Hand("wordAlignments", "");
    HandEmptyLists({"slWordToComponent", "tlWordToComponent", "numbers"});
    for (const std::string_view Name : {"headIndex", "xHeadIndex", "yHeadIndex"}) {
      Hand(Name, None);
    }
    HandAlternatives(Alignments);
    Handler.EndObject();
  }

  void HandText(std::string_view Text) {
    Handler.StartObject();
    Hand("text", Text);
    Handler.EndObject();
  }

 private:
  using Labels = std::vector<std::string_view>;

  /// An index, a rank or a number that is not known.
  static constexpr int None = -1;

  void HandString(std::string_view Text) {
    Handler.String(Text.data(), static_cast<unsigned>(Text.size()));
  }

  void HandBytes(std::string_view Bytes) {
    if (IsAscii(Bytes)) {
      HandString(Bytes);
    } else {
      HandString(ToUnicode(Bytes));
    }
  }

  void Hand(std::string_view Name, std::string_view Bytes) {
    HandString(Name);
    HandBytes(Bytes);
  }

  void Hand(std::string_view Name, int Number) {
    HandString(Name);
    Handler.Int(Number);
  }

  /// @param HandElements hands all elements
  template <typename HandElementsT>
  void HandList(std::string_view Name, HandElementsT HandElements) {
    HandString(Name);
    Handler.StartArray();
    HandElements();
    Handler.EndArray();
  }

  void Hand(std::string_view Name, const std::vector<std::string>& vsTexts) {
    HandList(Name, [&] {
      for (const std::string& sText : vsTexts) {
        HandBytes(sText);
      }
    });
  }

  void HandEmptyLists(std::initializer_list<std::string_view> Names) {
    for (const std::string_view Name : Names) {
      HandList(Name, [] {});
    }
  }

  void HandHeader(const RuleHeader& Header) {
    HandString("header");
    if (Header.IsPresent) {
      Handler.StartObject();
      Hand(Header.IsReadable ? "type" : "text", Header.Type);
      Handler.EndObject();
    } else {
      Handler.Null();
    }
    Hand("ruleIndex", Header.IsPresent ? NumberOf(Header) : None);
  }

  /// Passes the labels as the normal form has them.
  void HandLabels(std::string_view Name, const Labels& vLabels) {
    HandList(Name, [&] {
      for (const std::string_view Label : vLabels) {
        Scratch.clear();
        RuleForm::AppendLabel(Label, Scratch);
        HandBytes(Scratch);
      }
    });
  }

  void HandCapitals(std::string_view Text) {
    Scratch.assign(Text);
    for (char& Byte : Scratch) {
      Byte = ToUpper(Byte);
    }
    HandBytes(Scratch);
  }

  /// Passes the labels as the library's record has them, all in capitals.
  void HandWordLabels(std::string_view Name, const Labels& vLabels) {
    HandList(Name, [&] {
      for (const std::string_view Label : vLabels) {
        HandCapitals(Label);
      }
    });
  }

  /// Passes the words of an example as the library reads them from its comment.
  void HandWords(std::string_view Name, std::string_view Sentence) {
    HandList(Name, [&] {
      TrRuleInternal::Splitter Pieces(Sentence, " ");
      for (std::string_view Piece; Pieces.Next(Piece);) {
        HandCapitals(TrRuleInternal::TrimmedField(Piece));
      }
    });
  }

  /// The text after a label in the comments; empty if no comment bears it.
  static std::string_view Labelled(const RuleRecord& Record, std::string_view Label) {
    std::string_view Rest;
    const bool IsFound = FindLabel(Record.Comments(), Label, Rest) != Record.Comments().end();
    return IsFound ? Rest : std::string_view();
  }

  void HandConstraints(const RuleForm& Form) {
    HandList("constraints", [&] {
      for (std::size_t Place = 0; Place < Form.ConstraintCount(); ++Place) {
        Handler.StartObject();
        HandFields(Form.FieldsAt(Place));
        HandConstraintLines(Form, Place);
        Handler.EndObject();
      }
    });
  }

  void HandFields(const TrRuleInternal::ConstraintView& Fields) {
    Hand("category", Fields.Category);
    Hand("index", Fields.ConstrainedIndex);
    Hand("feature", Fields.Feature);
    Hand("value", Fields.FeatValue);
    Hand("rank", None);
    HandString("isValue");
    Handler.Bool(Fields.ValueConstraint);
  }

  void HandConstraintLines(const RuleForm& Form, std::size_t Place) {
    HandList("lines", [&] {
      Scratch.clear();
      Form.AppendConstraintAt(Place, Scratch);
      for (std::string_view Lines = Scratch; !Lines.empty();) {
        const std::size_t Size = Lines.find('\n');
        HandBytes(Lines.substr(0, Size));
        Lines.remove_prefix(Size + 1);
      }
    });
  }

  /// The first alternative has the alignments of the rule; a grammar holds nothing else of them.
  void HandAlternatives(std::string_view Alignments) {
    HandString("alternatives");
    Handler.StartObject();
    HandEmptyLists({"slSentences", "tlSentences"});
    HandList("alignments", [&] { HandBytes(Alignments); });
    HandEmptyLists(
        {"cStructures", "slWordToComponent", "tlWordToComponent", "slWordLabels", "tlWordLabels"});
    Handler.EndObject();
  }

  HandlerT& Handler;
  std::string Scratch;
};

}  // namespace Grammar

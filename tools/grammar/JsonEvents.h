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
/// JsonEvents(Writer).EmitRule(Record);
/// std::string(Buffer.GetString()).substr(0, 11);  // R"({"header":{)"
/// @endcode
template <typename HandlerT>
class JsonEvents {
 public:
  explicit JsonEvents(HandlerT& HandlerPassIn) : Handler(HandlerPassIn) {}

  void EmitRule(const RuleRecord& Record) {
    const RuleForm& Form = Record.Form();
    const std::string Alignments = Form.AlignmentText();
    Handler.StartObject();
    EmitHeader(Record.Header());
    Emit("comments", Record.Comments());
    Emit("slType", Form.SLType());
    Emit("tlType", Form.TLType());
    EmitLabels("slLabels", Form.SLLabels());
    EmitLabels("tlLabels", Form.TLLabels());
    Emit("alignments", Alignments);
    EmitConstraints(Form);
    Emit("count", Record.Count());
    EmitWords("slWords", Labelled(Record, "SL:"));
    EmitWords("tlWords", Labelled(Record, "TL:"));
    Emit("cStructure", Labelled(Record, "C-Structure:"));
    EmitWordLabels("slWordLabels", Form.SLLabels());
    EmitWordLabels("tlWordLabels", Form.TLLabels());
    EmitEmptyLists({"slParseLabels", "tlParseLabels"});
    Emit("wordAlignments", "");
    EmitEmptyLists({"slWordToComponent", "tlWordToComponent", "numbers"});
    for (const std::string_view Name : {"headIndex", "xHeadIndex", "yHeadIndex"}) {
      Emit(Name, None);
    }
    EmitAlternatives(Alignments);
    Handler.EndObject();
  }

  void EmitText(std::string_view Text) {
    Handler.StartObject();
    Emit("text", Text);
    Handler.EndObject();
  }

 private:
  using Labels = std::vector<std::string_view>;

  /// An index, a rank or a number that is not known.
  static constexpr int None = -1;

  void EmitString(std::string_view Text) {
    Handler.String(Text.data(), static_cast<unsigned>(Text.size()));
  }

  void EmitBytes(std::string_view Bytes) {
    if (IsAscii(Bytes)) {
      EmitString(Bytes);
    } else {
      EmitString(ToUnicode(Bytes));
    }
  }

  void Emit(std::string_view Name, std::string_view Bytes) {
    EmitString(Name);
    EmitBytes(Bytes);
  }

  void Emit(std::string_view Name, int Number) {
    EmitString(Name);
    Handler.Int(Number);
  }

  /// @param EmitElements hands all elements
  template <typename EmitElementsT>
  void EmitList(std::string_view Name, EmitElementsT EmitElements) {
    EmitString(Name);
    Handler.StartArray();
    EmitElements();
    Handler.EndArray();
  }

  void Emit(std::string_view Name, const std::vector<std::string>& vsTexts) {
    EmitList(Name, [&] {
      for (const std::string& sText : vsTexts) {
        EmitBytes(sText);
      }
    });
  }

  void EmitEmptyLists(std::initializer_list<std::string_view> Names) {
    for (const std::string_view Name : Names) {
      EmitList(Name, [] {});
    }
  }

  void EmitHeader(const RuleHeader& Header) {
    EmitString("header");
    if (Header.IsPresent) {
      Handler.StartObject();
      Emit(Header.IsReadable ? "type" : "text", Header.Type);
      Handler.EndObject();
    } else {
      Handler.Null();
    }
    Emit("ruleIndex", Header.IsPresent ? NumberOf(Header) : None);
  }

  /// Passes the labels as the normal form has them.
  void EmitLabels(std::string_view Name, const Labels& vLabels) {
    EmitList(Name, [&] {
      for (const std::string_view Label : vLabels) {
        Scratch.clear();
        RuleForm::AppendLabel(Label, Scratch);
        EmitBytes(Scratch);
      }
    });
  }

  void EmitCapitals(std::string_view Text) {
    Scratch.assign(Text);
    for (char& Byte : Scratch) {
      Byte = ToUpper(Byte);
    }
    EmitBytes(Scratch);
  }

  /// Passes the labels as the library's record has them, all in capitals.
  void EmitWordLabels(std::string_view Name, const Labels& vLabels) {
    EmitList(Name, [&] {
      for (const std::string_view Label : vLabels) {
        EmitCapitals(Label);
      }
    });
  }

  /// Passes the words of an example as the library reads them from its comment.
  void EmitWords(std::string_view Name, std::string_view Sentence) {
    EmitList(Name, [&] {
      TrRuleInternal::Splitter Pieces(Sentence, " ");
      for (std::string_view Piece; Pieces.Next(Piece);) {
        EmitCapitals(TrRuleInternal::TrimmedField(Piece));
      }
    });
  }

  /// The text after a label in the comments; empty if no comment bears it.
  static std::string_view Labelled(const RuleRecord& Record, std::string_view Label) {
    std::string_view Rest;
    const bool IsFound = FindLabel(Record.Comments(), Label, Rest) != Record.Comments().end();
    return IsFound ? Rest : std::string_view();
  }

  void EmitConstraints(const RuleForm& Form) {
    EmitList("constraints", [&] {
      for (std::size_t Place = 0; Place < Form.ConstraintCount(); ++Place) {
        Handler.StartObject();
        EmitFields(Form.FieldsAt(Place));
        EmitConstraintLines(Form, Place);
        Handler.EndObject();
      }
    });
  }

  void EmitFields(const TrRuleInternal::ConstraintView& Fields) {
    Emit("category", Fields.Category);
    Emit("index", Fields.ConstrainedIndex);
    Emit("feature", Fields.Feature);
    Emit("value", Fields.FeatValue);
    Emit("rank", None);
    EmitString("isValue");
    Handler.Bool(Fields.ValueConstraint);
  }

  void EmitConstraintLines(const RuleForm& Form, std::size_t Place) {
    EmitList("lines", [&] {
      Scratch.clear();
      Form.AppendConstraintAt(Place, Scratch);
      for (std::string_view Lines = Scratch; !Lines.empty();) {
        const std::size_t Size = Lines.find('\n');
        EmitBytes(Lines.substr(0, Size));
        Lines.remove_prefix(Size + 1);
      }
    });
  }

  /// The first alternative has the alignments of the rule; a grammar holds nothing else of them.
  void EmitAlternatives(std::string_view Alignments) {
    EmitString("alternatives");
    Handler.StartObject();
    EmitEmptyLists({"slSentences", "tlSentences"});
    EmitList("alignments", [&] { EmitBytes(Alignments); });
    EmitEmptyLists(
        {"cStructures", "slWordToComponent", "tlWordToComponent", "slWordLabels", "tlWordLabels"});
    Handler.EndObject();
  }

  HandlerT& Handler;
  std::string Scratch;
};

}  // namespace Grammar

// Sections: scores, plain, JSON, trees for people.

#include "TranslationWriter.h"

#include <array>
#include <cstdio>

namespace Translate {

// ---- Scores -----------------------------------------------------------------------------------

void AppendScore(std::int64_t Score, std::string& TextReturn) {
  constexpr std::int64_t Million = 1000000;
  const std::uint64_t Size =
      Score < 0 ? 0 - static_cast<std::uint64_t>(Score) : static_cast<std::uint64_t>(Score);
  const std::string Digits = std::to_string(Size % Million);
  TextReturn.append(Score < 0 ? "-" : "").append(std::to_string(Size / Million)).append(1, '.');
  TextReturn.append(6 - Digits.size(), '0').append(Digits);
}

namespace {

/// The words of all pieces, joined by blanks.
std::string JoinedPieces(const TextResult& Result) {
  std::string Text;
  for (const Piece& Current : Result.vPieces) {
    Text.append(Text.empty() || Current.Target.empty() ? "" : " ").append(Current.Target);
  }
  return Text;
}

}  // namespace

void TranslationWriter::AppendResult(std::string_view Text, const TextResult& Result) {
  switch (Options.Format) {
    case TextFormat::Plain:
      AppendPlain(Result);
      break;
    case TextFormat::Json:
      AppendJson(Text, Result);
      break;
    case TextFormat::Tree:
      AppendDrawing(Text, Result);
      break;
    case TextFormat::Svg:
    case TextFormat::Html:
      break;
  }
}

std::string TranslationWriter::Append(std::string_view Text, const TextResult& Result,
                                      std::string& OutReturn) {
  Out = &OutReturn;
  if (Trace) {
    Trace->Trim();
  }
  const std::size_t Size = Out->size();
  try {
    AppendResult(Text, Result);
    return Result.Error;
  } catch (const StructureTooLarge& TooLarge) {
    Out->resize(Size);
    TextResult Failed;
    Failed.HasPieces = Result.HasPieces;
    Failed.Derivations = Result.Derivations;
    Failed.Error = TooLarge.what();
    AppendResult(Text, Failed);
    return Failed.Error;
  }
}

// ---- Plain ------------------------------------------------------------------------------------

void TranslationWriter::AppendPlain(const TextResult& Result) {
  for (const Translation& Best : Result.vTranslations) {
    if (Options.IsList) {
      AppendScore(Best.Score, *Out);
      *Out += '\t';
    }
    Out->append(Best.Target).append(1, '\n');
  }
  if (Result.HasPieces) {
    Out->append(JoinedPieces(Result)).append(1, '\n');
  }
  const bool HasLine = Result.HasPieces || !Result.vTranslations.empty();
  Out->append(Options.IsList || !HasLine ? "\n" : "");
}

// ---- JSON -------------------------------------------------------------------------------------

void TranslationWriter::AppendJson(std::string_view Text, const TextResult& Result) {
  Out->append("{\"source\":");
  AppendJsonString(Text, *Out);
  Out->append(",\"translations\":[");
  for (const Translation& Best : Result.vTranslations) {
    Out->append(&Best == &Result.vTranslations.front() ? "" : ",").append("{\"target\":");
    AppendJsonString(Best.Target, *Out);
    Out->append(",\"score\":");
    AppendScore(Best.Score, *Out);
    Out->append(",\"tree\":");
    AppendJsonTree(Best.Tree, 0);
    *Out += '}';
  }
  *Out += ']';
  if (Result.HasPieces) {
    AppendJsonPieces(Result);
  }
  if (Options.HasCount) {
    Out->append(",\"derivations\":");
    Out->append(Result.Derivations ? std::to_string(*Result.Derivations) : "null");
  }
  Out->append(",\"error\":");
  if (Result.Error.empty()) {
    Out->append("null");
  } else {
    AppendJsonString(Result.Error, *Out);
  }
  Out->append("}\n");
}

namespace {

void AppendSpan(std::size_t Start, std::size_t End, std::string& TextReturn) {
  TextReturn.append("\"span\":[").append(std::to_string(Start)).append(1, ',');
  TextReturn.append(std::to_string(End)).append(1, ']');
}

}  // namespace

void AppendPlaces(const RuleSet& Rules, const std::vector<Origin>& vOrigins,
                  std::string& TextReturn) {
  TextReturn += '[';
  for (const Origin& Current : vOrigins) {
    TextReturn.append(&Current == &vOrigins.front() ? "" : ",");
    AppendJsonString(Rules.FileName(Current.File) + ':' + std::to_string(Current.Line), TextReturn);
  }
  TextReturn += ']';
}

void TranslationWriter::AppendJsonPieces(const TextResult& Result) {
  Out->append(",\"pieces\":[");
  for (const Piece& Current : Result.vPieces) {
    Out->append(&Current == &Result.vPieces.front() ? "{" : ",{");
    AppendSpan(Current.Start, Current.End, *Out);
    Out->append(",\"target\":");
    AppendJsonString(Current.Target, *Out);
    Out->append(",\"tree\":");
    if (Current.Tree) {
      AppendJsonTree(*Current.Tree, Current.Start);
    } else {
      Out->append("null");
    }
    *Out += '}';
  }
  *Out += ']';
}

/// All of a constituent but its children.
void TranslationWriter::AppendJsonNode(const TreeNode& Node) {
  const RuleSet::Rule& Rule = Rules.At(Node.Rule);
  Out->append("{\"rule\":");
  AppendJsonString(Rules.FileOf(Rule) + ':' + std::to_string(Rule.Line), *Out);
  Out->append(",\"header\":");
  if (Rule.Header == RuleSet::None) {
    Out->append("null");
  } else {
    AppendJsonString(Rules.HeaderOf(Rule), *Out);
  }
  *Out += ',';
  AppendSpan(Node.Start, Node.End, *Out);
  Out->append(",\"types\":[");
  AppendJsonString(Rules.LabelName(Rule.SourceType), *Out);
  *Out += ',';
  AppendJsonString(Rules.LabelName(Rule.TargetType), *Out);
  Out->append("],\"source\":");
  Structures.AppendJson(Node.Structures.Source, *Out);
  Out->append(",\"target\":");
  Structures.AppendJson(Node.Structures.Target, *Out);
}

/// For each path that leads to atoms the constraints that gave them: {"AGR NUM":["words.trr:30"]}.
void TranslationWriter::AppendOrigins(StructureId Structure) {
  StructureWalk Walk(Rules, Trace->Structures());
  StructureWalk::Event Current;
  *Out += '{';
  const std::size_t Start = Out->size();
  for (Walk.Start(Structure); Walk.Next(Current);) {
    if (Current.What != StructureWalk::Kind::Atoms) {
      continue;
    }
    std::string Path;
    for (const std::uint32_t Feature : Walk.Path()) {
      Path.append(Path.empty() ? "" : " ").append(Rules.FeatureName(Feature));
    }
    Out->append(Out->size() == Start ? "" : ",");
    AppendJsonString(Path, *Out);
    *Out += ':';
    if (Out->size() - Start > StructureText::MaxBytes) {
      throw TooLongToWrite();
    }
    AppendPlaces(Rules, Trace->Origins(Current.Structure), *Out);
  }
  *Out += '}';
}

void TranslationWriter::AppendJsonTree(Derivations::TreeId Tree, std::size_t Start) {
  const std::vector<TreeNode> vNodes = Engine.NodesOf(Tree, Start);
  std::vector<StructurePair> vTraced;
  if (Trace) {
    vTraced =
        StructuresOf(vNodes, [&](std::uint32_t Rule, const std::vector<StructurePair>& vParts) {
          return Trace->Apply(Rules.At(Rule), vParts);
        });
  }
  std::vector<std::uint32_t> vLeft;  // the children that are still to come, of each open node
  for (const TreeNode& Node : vNodes) {
    AppendJsonNode(Node);
    if (Trace) {
      const StructurePair& Traced = vTraced[static_cast<std::size_t>(&Node - vNodes.data())];
      Out->append(",\"origins\":{\"source\":");
      AppendOrigins(Traced.Source);
      Out->append(",\"target\":");
      AppendOrigins(Traced.Target);
      *Out += '}';
    }
    Out->append(",\"children\":[");
    vLeft.push_back(Node.Parts);
    while (!vLeft.empty() && vLeft.back() == 0) {
      Out->append("]}");
      vLeft.pop_back();
      if (!vLeft.empty()) {
        --vLeft.back();
        Out->append(vLeft.back() > 0 ? "," : "");
      }
    }
  }
}

// ---- Trees for people -------------------------------------------------------------------------

namespace {

constexpr std::string_view Bold = "\x1b[1m";
constexpr std::string_view Blue = "\x1b[34m";
constexpr std::string_view Green = "\x1b[32m";
constexpr std::string_view Grey = "\x1b[90m";
constexpr std::string_view Usual = "\x1b[0m";

}  // namespace

void TranslationWriter::AppendColoured(std::string_view Colour, std::string_view Text) {
  if (!Options.Colours || Text.empty()) {
    Out->append(Text);
    return;
  }
  Out->append(Colour).append(Text).append(Usual);
}

/// A line of a tree: what it hangs on, the rule, its words and its structures.
void TranslationWriter::DrawNode(const TreeNode& Node, const std::string& Branch) {
  const RuleSet::Rule& Rule = Rules.At(Node.Rule);
  const std::string Place = Rules.FileOf(Rule) + ':' + std::to_string(Rule.Line);
  AppendColoured(Grey, Branch);
  AppendColoured(Bold, Rules.LabelName(Rule.SourceType) + "::" + Rules.LabelName(Rule.TargetType));
  *Out += ' ';
  AppendColoured(Blue,
                 Rule.Header == RuleSet::None ? Place : '{' + Rules.HeaderOf(Rule) + "} " + Place);
  std::string Words;
  for (std::size_t At = Node.Start; At < Node.End; ++At) {
    Words.append(At == Node.Start ? " \"" : " ").append(Engine.ParsedChart().Tokens()[At]);
  }
  AppendColoured(Green, Words + '"');
  if (Node.Structures.Source != StructureStore::Open ||
      Node.Structures.Target != StructureStore::Open) {
    *Out += ' ';
    Structures.AppendShort(Node.Structures.Source, *Out);
    Out->append(" -> ");
    Structures.AppendShort(Node.Structures.Target, *Out);
  }
  *Out += '\n';
}

void TranslationWriter::DrawTree(Derivations::TreeId Tree, std::size_t Start) {
  struct Level {
    std::uint32_t Left;  // how many parts are still to come
    std::size_t Indent;
  };
  std::vector<Level> vLevels;
  std::string Indent;
  for (const TreeNode& Node : Engine.NodesOf(Tree, Start)) {
    if (vLevels.empty()) {
      DrawNode(Node, "");
    } else {
      const bool IsLast = --vLevels.back().Left == 0;
      Indent.resize(vLevels.back().Indent);
      DrawNode(Node, Indent + (IsLast ? "└─ " : "├─ "));
      Indent += IsLast ? "   " : "│  ";
    }
    vLevels.push_back({Node.Parts, Indent.size()});
    while (!vLevels.empty() && vLevels.back().Left == 0) {
      vLevels.pop_back();
    }
  }
}

void TranslationWriter::AppendDrawing(std::string_view Text, const TextResult& Result) {
  Out->append(Text).append(1, '\n');
  for (const Translation& Best : Result.vTranslations) {
    AppendScore(Best.Score, *Out);
    *Out += ' ';
    AppendColoured(Bold, Best.Target);
    *Out += '\n';
    DrawTree(Best.Tree, 0);
  }
  if (Result.vTranslations.empty()) {
    Out->append(Result.Error.empty() ? "no translation\n" : "");
  }
  for (const Piece& Current : Result.vPieces) {
    AppendColoured(Bold, Current.Target);
    *Out += '\n';
    if (Current.Tree) {
      DrawTree(*Current.Tree, Current.Start);
    }
  }
  if (!Result.Error.empty()) {
    Out->append(Result.Error).append(1, '\n');
  }
  *Out += '\n';
}

}  // namespace Translate

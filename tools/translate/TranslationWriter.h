#pragma once

#include "StructureText.h"
#include "Tracer.h"
#include "Translator.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace Translate {

enum class TextFormat : std::uint8_t { Plain, Json, Tree, Svg, Html };

/// Whether derivations are drawn as pictures, which is not the work of `TranslationWriter`.
constexpr bool IsPicture(TextFormat Format) {
  return Format == TextFormat::Svg || Format == TextFormat::Html;
}

struct WriterOptions {
  TextFormat Format = TextFormat::Plain;
  bool IsList = false;      ///< of the plain form: scores, and an empty line after each text
  bool HasCount = false;    ///< of JSON: how many derivations there are
  bool HasOrigins = false;  ///< of JSON: which constraints gave the values
  bool Colours = false;     ///< of trees
};

/// Writes what has become of texts. One for each translator.
///
/// @code
/// TranslationWriter Writer(Rules, Engine, WriterOptions());
/// std::string Output;
/// Writer.Append("the red car", Engine.Translate("the red car", TextOptions()), Output);
/// Output;  // "el auto rojo\n"
/// @endcode
class TranslationWriter {
 public:
  TranslationWriter(const RuleSet& RulesPassIn, Translator& EnginePassIn,
                    const WriterOptions& OptionsPassIn)
      : Rules(RulesPassIn),
        Engine(EnginePassIn),
        Options(OptionsPassIn),
        Structures(RulesPassIn, EnginePassIn.Structures(), EnginePassIn.Atoms()) {
    if (Options.HasOrigins) {
      Trace.emplace(RulesPassIn);
    }
  }

  /// Appends the result of the text that was translated last.
  /// @return its error, or that a structure of it is too long to be written: then nothing of it is;
  ///         empty if there is no error
  std::string Append(std::string_view Text, const TextResult& Result, std::string& OutReturn);

 private:
  void AppendResult(std::string_view Text, const TextResult& Result);
  void AppendPlain(const TextResult& Result);
  void AppendJson(std::string_view Text, const TextResult& Result);
  void AppendJsonPieces(const TextResult& Result);
  void AppendJsonTree(Derivations::TreeId Tree, std::size_t Start);
  void AppendJsonNode(const TreeNode& Node);
  void AppendOrigins(StructureId Structure);
  void AppendDrawing(std::string_view Text, const TextResult& Result);
  void DrawTree(Derivations::TreeId Tree, std::size_t Start);
  void DrawNode(const TreeNode& Node, const std::string& Branch);
  void AppendColoured(std::string_view Colour, std::string_view Text);

  const RuleSet& Rules;
  Translator& Engine;
  WriterOptions Options;
  StructureText Structures;
  std::optional<Tracer> Trace;
  std::string* Out = nullptr;
};

/// Lines of files as a JSON list: ["words.trr:30"].
void AppendPlaces(const RuleSet& Rules, const std::vector<Origin>& vOrigins,
                  std::string& TextReturn);

/// A score in nats with six digits: "-1.386294".
void AppendScore(std::int64_t Score, std::string& TextReturn);

}  // namespace Translate

#include "DiffWriters.h"

#include "JsonDiffWriter.h"
#include "PlainDiffWriter.h"
#include "StatDiffWriter.h"

namespace Grammar {

std::unique_ptr<DiffWriter> MakeDiffWriter(const DiffStyle& StylePassIn) {
  switch (StylePassIn.Format) {
    case DiffFormat::Json:
      return std::make_unique<JsonDiffWriter>();
    case DiffFormat::Stat:
      return std::make_unique<StatDiffWriter>();
    default:
      return std::make_unique<PlainDiffWriter>(StylePassIn);
  }
}

}  // namespace Grammar

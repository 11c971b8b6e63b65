#include "Progress.h"

#include <unistd.h>

#include <array>
#include <cstdio>

namespace Grammar {

namespace {

constexpr const char* TakeLineAway = "\r\033[K";
constexpr std::chrono::milliseconds BetweenLines(200);

/// A number of bytes for people: `999 B`, `1.2 MB`.
std::string Bytes(std::uint64_t Count) {
  constexpr std::array<const char*, 4> Units{"kB", "MB", "GB", "TB"};
  if (Count < 1000) {
    return std::to_string(Count) + " B";
  }
  auto Number = static_cast<double>(Count) / 1000;
  std::size_t Unit = 0;
  while (Number >= 999.95 && Unit + 1 < Units.size()) {
    Number /= 1000;
    ++Unit;
  }
  std::array<char, 32> Text{};
  static_cast<void>(std::snprintf(Text.data(), Text.size(), "%.1f %s", Number, Units[Unit]));
  return Text.data();
}

void WriteToTerminal(const std::string& Text) {
  // A terminal that cannot be written to is no reason to end the run.
  [[maybe_unused]] const ssize_t Written = write(STDERR_FILENO, Text.data(), Text.size());
}

}  // namespace

Progress::Progress(bool Quiet, std::uint64_t TotalBytesPassIn)
    : Shown(!Quiet && isatty(STDERR_FILENO) == 1),
      TotalBytes(TotalBytesPassIn),
      Started(std::chrono::steady_clock::now()),
      LastShown(Started) {}

Progress::~Progress() {
  if (Shown) {
    WriteToTerminal(TakeLineAway);
  }
}

std::string Progress::Line(double Seconds) const {
  std::string Text = std::to_string(Rules) + " rules";
  if (Seconds > 0) {
    const auto Rate = static_cast<std::uint64_t>(static_cast<double>(Rules) / Seconds);
    Text += ", " + std::to_string(Rate) + "/s";
  }
  Text += ", " + Bytes(DoneBytes);
  if (TotalBytes > 0) {
    Text +=
        " of " + Bytes(TotalBytes) + " (" + std::to_string(DoneBytes * 100 / TotalBytes) + " %)";
  }
  return Text;
}

void Progress::ShowWhenDue() {
  const auto Now = std::chrono::steady_clock::now();
  if (Now - LastShown >= BetweenLines) {
    LastShown = Now;
    WriteToTerminal(TakeLineAway + Line(std::chrono::duration<double>(Now - Started).count()));
  }
}

}  // namespace Grammar

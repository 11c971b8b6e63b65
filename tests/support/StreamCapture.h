#pragma once

#include <iostream>
#include <sstream>
#include <string>

/// Captures what the program writes to std::cout and std::cerr while it exists.
///
///   StreamCapture Streams;
///   Rule.Print();
///   EXPECT_EQ(Streams.TakeOut(), "{,-1}\n:: [] -> []\n(\n)\n");
///   EXPECT_EQ(Streams.TakeErr(), "");
class StreamCapture {
 public:
  StreamCapture() : OldOut(std::cout.rdbuf(Out.rdbuf())), OldErr(std::cerr.rdbuf(Err.rdbuf())) {}

  ~StreamCapture() {
    std::cout.rdbuf(OldOut);
    std::cerr.rdbuf(OldErr);
  }

  StreamCapture(const StreamCapture&) = delete;
  StreamCapture& operator=(const StreamCapture&) = delete;

  /// The text written to standard output since the last call.
  std::string TakeOut() { return Take(Out); }

  /// The text written to standard error since the last call.
  std::string TakeErr() { return Take(Err); }

 private:
  static std::string Take(std::ostringstream& Stream) {
    std::string Text = Stream.str();
    Stream.str("");
    return Text;
  }

  std::ostringstream Out;
  std::ostringstream Err;
  std::streambuf* OldOut;
  std::streambuf* OldErr;
};

/// The output of a piece of code on the two streams.
struct Written {
  std::string Out;
  std::string Err;

  friend bool operator==(const Written& Left, const Written& Right) {
    return Left.Out == Right.Out && Left.Err == Right.Err;
  }

  friend std::ostream& operator<<(std::ostream& Stream, const Written& Texts) {
    return Stream << "\n--- out ---\n" << Texts.Out << "\n--- err ---\n" << Texts.Err;
  }
};

/// Runs the code and returns its output.
template <typename CodeT>
Written WrittenBy(CodeT Code) {
  StreamCapture Streams;
  Code();
  Written Texts;
  Texts.Out = Streams.TakeOut();
  Texts.Err = Streams.TakeErr();
  return Texts;
}

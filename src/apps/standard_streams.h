#pragma once

#include <iosfwd>
#include <memory>

namespace cu {

// The standard streams of a command line program, from the beginning of main to its end.
//
// A descriptor that the caller has closed leads to nothing, so that no file of the run gets its number and
// with it what is meant for the screen. Control characters of the texts that are shown (names, reasons and
// cells come from files of any origin) do not reach a terminal: each is written as its picture, such as ␛ for
// an escape; line ends, tabs and carriage returns pass.
class StandardStreams {
 public:
  StandardStreams();
  ~StandardStreams();
  StandardStreams(const StandardStreams&) = delete;
  StandardStreams& operator=(const StandardStreams&) = delete;

  // Writes what is still collected. Where something did not get where standard output leads, as on a full
  // disk, it says so and makes a success a failure; a reader who has gone away has what it wanted. Returns
  // the exit code.
  int finished(int code);

 private:
  static bool complete();
  class Visible;
  std::unique_ptr<Visible> out_;
  std::unique_ptr<Visible> err_;
};

// A limit on the size of a file is an error of the write, and an exception that nobody handles, such as for
// memory that is exhausted, ends the program with a sentence and exit code 1.
void reportInWords();

}  // namespace cu

#pragma once

namespace orvenza {

/// Readies the console for a program that writes UTF-8, and puts it back as it was. Standard input and output
/// pass bytes on as they are, so that redirected output is the same on every system.
class ConsoleMode {
 public:
  ConsoleMode();
  ~ConsoleMode();
  ConsoleMode(const ConsoleMode&) = delete;
  ConsoleMode& operator=(const ConsoleMode&) = delete;

  bool OutputIsConsole() const { return outputIsConsole_; }  ///< Standard output is a console.
  bool ShowsColours() const { return showsColours_; }        ///< Standard output is a console that does.
  bool ErrorIsConsole() const { return errorIsConsole_; }    ///< Standard error is a console.

 private:
  unsigned codePage_;
  unsigned long outputMode_ = 0;
  bool outputIsConsole_ = false;
  bool showsColours_ = false;
  bool errorIsConsole_ = false;
};

}  // namespace orvenza

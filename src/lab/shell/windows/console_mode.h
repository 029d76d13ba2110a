#pragma once

namespace orvenza {

/// Sets up the console for UTF-8 output and restores it afterwards. Standard input and output become binary,
/// so that redirected output is the same on every system.
class ConsoleMode {
 public:
  ConsoleMode();
  ~ConsoleMode();
  ConsoleMode(const ConsoleMode&) = delete;
  ConsoleMode& operator=(const ConsoleMode&) = delete;

  bool OutputIsConsole() const { return outputIsConsole_; }  ///< Standard output is a console.
  bool ShowsColours() const { return showsColours_; }        ///< Standard output is a console with colours.
  bool ErrorIsConsole() const { return errorIsConsole_; }    ///< Standard error is a console.

 private:
  unsigned codePage_;
  unsigned long outputMode_ = 0;
  bool outputIsConsole_ = false;
  bool showsColours_ = false;
  bool errorIsConsole_ = false;
};

}  // namespace orvenza

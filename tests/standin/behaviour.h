#pragma once

#include <set>
#include <string>
#include <string_view>

namespace orvenza::test {

/// Deviations of the stand-in from a well-behaved control: words separated by blanks, read from an
/// environment variable at each use.
///
///     refuses            cannot be created
///     no-members         has no members to call
///     no-state, no-site  refuses to be initialised, to be sited
///     no-events, deaf    has no events, refuses a connection to them
///     asleep             cannot be activated
///     invisible          cannot be activated either, but is invisible at run time and works anyway
///     shows-only         can be activated by the verb "show" only
///     site-first         wants its site before it is initialised
///     short, bytes       declares and takes integers of 16 or of 8 bits
///     flags-as-numbers   returns its booleans as 16-bit integers
///     variables          declares its integers as variables, not as functions
///     inherited          its event interface lists a restricted method first
///     few-events         its event interface ends after its second entry
///     custom-events      its event interface is for calls by position, not by number
///     noisy              raises an unlisted event before every reply, and drops the reply if a listener
///                        fails
///     at-once            raises the due events from inside the method that sends
///     registry-status    refers to the registry for its status flags, which then include site-first
///     state=KIND         is initialised by a stream (the default), storage, bag, none of them, or by storage
///                        because of an unimplemented-stream
///     types=KIND         describes itself by class2 (the default), class or library; or by guid only, or not
///                        at all (none), and then its events have the numbers 1 to 4
///     dies-with=PREFIX   dies when it is to send such a command; the next instance is well-behaved
///     fails=N:HOW        member N fails with the number HOW (0x80004005), with exception or deferred (which
///                        have a description), with unfailing (an exception whose number is no failure), or
///                        returns a text where none is expected (text)
class Behaviour {
 public:
  static constexpr const char* kVariable = "ORVENZA_STANDIN_BEHAVIOUR";

  static Behaviour Now();

  bool Is(const std::string& word) const { return words_.count(word) > 0; }

  /// The rest of the word that begins with `start`; "" if there is none.
  std::string After(std::string_view start) const;

  /// How the control is initialised, and how it is described.
  std::string State() const { return Or("stream", After("state=")); }
  std::string Types() const { return Or("class2", After("types=")); }
  /// Whether type information describes its members and events.
  bool Described() const { return Types() != "guid" && Types() != "none"; }

 private:
  static std::string Or(const char* usual, std::string chosen) { return chosen.empty() ? usual : chosen; }

  std::set<std::string> words_;
};

}  // namespace orvenza::test

#pragma once

#include <set>
#include <string>
#include <string_view>

namespace orvenza::test {

/// How the stand-in differs from a well-behaved control. Words separated by blanks, read from an environment
/// variable whenever they matter:
///
///     refuses            cannot be created
///     no-members         has no members to call
///     no-state, no-site  refuses to be initialised, to be sited
///     no-events, deaf    has no events, refuses to be listened to
///     asleep             cannot be activated
///     invisible          neither, but is invisible at run time and works all the same
///     shows-only         can be activated by the verb "show" only
///     site-first         wants its site before it is initialised
///     short, bytes       declares and takes integers of 16 or of 8 bits
///     flags-as-numbers   gives its booleans as integers of 16 bits
///     variables          declares its integers as variables, not as functions
///     inherited          its event interface lists a restricted method first
///     few-events         its event interface ends after its second entry
///     custom-events      its event interface is for calls by position, not by number
///     noisy              raises an event that its interface does not list, before every reply, and gives
///                        the reply up where a listener fails it
///     at-once            raises the events that are due from inside the method that sends
///     registry-status    refers to the registry for what it asks of its container, where site-first stands
///     state=KIND         is initialised by a stream (as it is otherwise), storage, bag, by none of them, or
///                        by storage because of an unimplemented-stream
///     types=KIND         describes itself by class2 (otherwise), class or library; by guid only, or not at
///                        all (none), and then its events have the numbers 1 to 4
///     dies-with=PREFIX   is gone when it is to send such a command; its successor is well-behaved
///     fails=N:HOW        member N fails with the number HOW (0x80004005), with exception or deferred (which
///                        carry a description), with unfailing (an exception whose number is no failure's),
///                        or gives a text that it should not
class Behaviour {
 public:
  static constexpr const char* kVariable = "ORVENZA_STANDIN_BEHAVIOUR";

  static Behaviour Now();

  bool Is(const std::string& word) const { return words_.count(word) > 0; }

  /// What follows `start` in the word that begins with it, "" when none does.
  std::string After(std::string_view start) const;

  /// What initialises and what describes the control.
  std::string State() const { return Or("stream", After("state=")); }
  std::string Types() const { return Or("class2", After("types=")); }
  /// Whether its members and events are described by type information.
  bool Described() const { return Types() != "guid" && Types() != "none"; }

 private:
  static std::string Or(const char* usual, std::string chosen) { return chosen.empty() ? usual : chosen; }

  std::set<std::string> words_;
};

}  // namespace orvenza::test

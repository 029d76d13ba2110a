#pragma once

#include "device/reply.h"

namespace orvenza {

/// The consequences of a reply that the register's protocol leaves open. Every such decision is here, so that
/// it can be compared with the others and changed in one place.
///
///                 silence  refused  paper out  link error  garbled  done
///     LineIsDone     -        -         -         2 only       x      x
///     Accepted       x        -         -           -          x      x
///     Answered       -        -         -           -          x      x
///     NotDone        -        x         -           -          -      -
namespace reply_policy {

/// Whether a ticket's line counts as executed. Link error 2 deliberately does.
[[nodiscard]] bool LineIsDone(const Reply& reply);

/// Whether a void or a restart of printing counts as executed. Silence deliberately does.
[[nodiscard]] bool Accepted(const Reply& reply);

/// Whether anything but an error arrived.
[[nodiscard]] bool Answered(const Reply& reply);

/// Whether the register has certainly not executed the command.
[[nodiscard]] bool NotDone(const Reply& reply);

}  // namespace reply_policy
}  // namespace orvenza

#pragma once
// The message queue of the GUI thread. PostMessage queues a message for a control and
// returns at once; the Qt event loop delivers it later to the control's WindowProc, in
// the order posted, before the next input event is handled (posted messages come first,
// as in the framework's queue). SendMessage delivers at once. PeekMessage looks into the queue,
// so that a control can ask whether one of its messages is still pending, or take it out.

#include "framework/controls/Messages.h"

namespace quil {

class TControl;

constexpr UINT PM_NOREMOVE = 0x0000;
constexpr UINT PM_REMOVE = 0x0001;

bool PostMessage(TControl* control, UINT msg, WPARAM wParam, LPARAM lParam);
LRESULT SendMessage(TControl* control, UINT msg, WPARAM wParam, LPARAM lParam);
// True when a message for control (any control when null) with a number from msgFrom to
// msgTo (both 0: any number) is queued; copies the first such into message when it is not
// null, and takes it out of the queue with PM_REMOVE.
bool PeekMessage(TMessage* message, TControl* control, UINT msgFrom, UINT msgTo, UINT removeFlags);
// Delivers the messages queued up to now; those posted meanwhile wait for the next round.
void DeliverPostedMessages();
// A control being destroyed drops its queued messages.
void DiscardPostedMessages(TControl* control);

}  // namespace quil

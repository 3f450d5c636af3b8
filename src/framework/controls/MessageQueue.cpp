#include "framework/controls/MessageQueue.h"

#include <QCoreApplication>
#include <QObject>
#include <algorithm>
#include <deque>
#include <memory>

#include "framework/controls/Controls.h"

namespace quil {

namespace {

struct QueuedMessage {
  TControl* control;
  TMessage message;
};

struct MessageQueue {
  std::deque<QueuedMessage> entries;
  // Receives the queued call that wakes delivery; one is pending at most.
  std::unique_ptr<QObject> waker;
  bool wakeScheduled = false;
};

MessageQueue& ThreadQueue() {
  thread_local MessageQueue queue;
  return queue;
}

void ScheduleDelivery(MessageQueue& queue) {
  if (queue.wakeScheduled) return;
  if (!queue.waker) queue.waker = std::make_unique<QObject>();
  queue.wakeScheduled = true;
  QMetaObject::invokeMethod(queue.waker.get(), [] { DeliverPostedMessages(); }, Qt::QueuedConnection);
}

bool Matches(const QueuedMessage& entry, TControl* control, UINT msgFrom, UINT msgTo) {
  if (control && entry.control != control) return false;
  if (msgFrom == 0 && msgTo == 0) return true;
  return entry.message.Msg >= msgFrom && entry.message.Msg <= msgTo;
}

}  // namespace

bool PostMessage(TControl* control, UINT msg, WPARAM wParam, LPARAM lParam) {
  if (!control) return false;
  MessageQueue& queue = ThreadQueue();
  queue.entries.push_back({control, TMessage{msg, wParam, lParam, 0}});
  ScheduleDelivery(queue);
  return true;
}

LRESULT SendMessage(TControl* control, UINT msg, WPARAM wParam, LPARAM lParam) {
  if (!control) return 0;
  return control->Perform(msg, wParam, lParam);
}

bool PeekMessage(TMessage* message, TControl* control, UINT msgFrom, UINT msgTo, UINT removeFlags) {
  MessageQueue& queue = ThreadQueue();
  auto found = std::find_if(queue.entries.begin(), queue.entries.end(),
                            [&](const QueuedMessage& entry) { return Matches(entry, control, msgFrom, msgTo); });
  if (found == queue.entries.end()) return false;
  if (message) *message = found->message;
  if (removeFlags & PM_REMOVE) queue.entries.erase(found);
  return true;
}

void DeliverPostedMessages() {
  MessageQueue& queue = ThreadQueue();
  queue.wakeScheduled = false;
  // Only what is queued now: a handler that posts again must not starve the event loop.
  for (size_t remaining = queue.entries.size(); remaining > 0 && !queue.entries.empty(); --remaining) {
    QueuedMessage entry = queue.entries.front();
    queue.entries.pop_front();
    entry.control->Perform(entry.message.Msg, entry.message.WParam, entry.message.LParam);
  }
  if (!queue.entries.empty()) ScheduleDelivery(queue);
}

void DiscardPostedMessages(TControl* control) {
  auto& entries = ThreadQueue().entries;
  entries.erase(std::remove_if(entries.begin(), entries.end(),
                               [control](const QueuedMessage& entry) { return entry.control == control; }),
                entries.end());
}

}  // namespace quil

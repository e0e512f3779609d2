// Message boxes with Lithuanian buttons.
#pragma once

#include <QString>

#include "frame/contract/quor_application.h"

class QWidget;

namespace quor {

// Shows the box and waits. Esc and the close box are Cancel or No, the default of a question, too: Enter does no harm.
BoxAnswer show_message_box(QWidget* parent, const QString& text, BoxIcon icon, BoxButtons buttons,
                           const QString& title);

// What to do with what is not written yet.
enum class SaveAnswer { kSave, kDiscard, kStay };
// Asks so when `name` is about to be closed. Enter saves, Esc and the close box stay.
SaveAnswer ask_to_save(QWidget* parent, const QString& name);
// The same of what cannot be written. Enter, Esc and the close box stay.
bool ask_to_discard(QWidget* parent, const QString& name);

}  // namespace quor

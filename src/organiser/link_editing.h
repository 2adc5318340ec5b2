#pragma once

#include "organiser/link_result.h"

namespace paneda {

class Organiser;
class Prompts;

// Gives the organiser's selected button, a record, the fields and then the name in `link`. Returns whether
// the change is over. It is not when the name was refused, the fields being written already, and when the
// fields could not be written to a file that is still there; a notice has then said why. A name that cannot
// be given on the disk ends the change with a notice.
bool EditLink(Organiser& organiser, const LinkResult& link, Prompts& prompts);

} // namespace paneda

#include "platform/process_end.h"

#include <unistd.h>

namespace paneda {

void EndProcess(int status) {
    ::_exit(status);
}

} // namespace paneda

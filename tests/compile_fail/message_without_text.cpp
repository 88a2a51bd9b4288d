// refused: static assertion failed
// Every message that the library of texts offers has a text in every language.
#include "standins/lexbank/err_msg.h"

tallyra::automation::Value message(tallyra::standins::lexbank::ErrMsg& messages) {
#ifdef MENDED
  return messages.message<10000003>();
#else
  return messages.message<10000001>();
#endif
}

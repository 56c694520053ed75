#pragma once

namespace sorvane {

// Whether a person types at the standard input and reads standard error.
bool CanAsk();

// Whether a person reads standard error.
bool IsErrorWatched();

// Lets the standard streams carry bytes as they are, and a console take them for UTF-8.
void SetStreamsPlain();

// Whether the person has asked the program to end by Ctrl-C or by closing its terminal, or the
// system by its signal. The first call begins to look after that, in place of the program's end.
bool IsEndWanted();

}  // namespace sorvane

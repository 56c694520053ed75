#pragma once

namespace sorvane::simulator {

// The number under which the board keeps a second copy of a parameter; 0 where it keeps none.
int SecondCopyOf(int parameter);

}  // namespace sorvane::simulator

#pragma once

// A device that hangs up and a file at its size limit come back from then on as a failed write, with its words, instead
// of ending the process half way. Called first by each program.
void FallasDeEscrituraComoErrores();

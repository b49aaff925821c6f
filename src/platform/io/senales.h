#pragma once

// A device that hangs up and a file at its size limit come back from then on as a failed write, with its words, instead
// of ending the process half way. Called first by each program.
void FallasDeEscrituraComoErrores();

// The C library asks the disk for the zone's file at each local time while TZ names none: it is named here, and a zone
// that is changed counts from the next start on. Called first by each program, while it has one thread.
void NombrarZona();

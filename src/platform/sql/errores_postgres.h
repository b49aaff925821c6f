#pragma once
#include "platform/sql/error_bd.h"

struct pg_conn;
struct pg_result;

// What an error of the server is to the program: numbers as those of the embedded engine, Spanish words for what is not
// a statement's fault.
ErrorBD errorPostgres(const pg_conn* conexion, const pg_result* resultado);

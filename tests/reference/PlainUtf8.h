// UTF-8 validity in its plainest form: one sequence after the other.
#pragma once

bool plainIsUtf8(const char* text);

#include "book/book_settings.h"

constinit BookSettings Book = {};

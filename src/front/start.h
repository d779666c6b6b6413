// The start of the engine, in its one order.
#pragma once

// What the program around the engine may want otherwise. Settings of the user go before it.
struct StartOptions {
    bool defaultBook = true;  // opens Book.tqn where no other book is named
    bool bookLearning = true; // results teach the book that is open
};

// Starts the engine and plays until it is told to end; that ends the process. Returns the exit
// status when there is not enough memory. Called first thing in `main`.
int RunEngine(const StartOptions& options = {});

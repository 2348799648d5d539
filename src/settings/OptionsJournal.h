#pragma once
#include <string_view>

// What the user has chosen but the store does not hold yet, for the options' writer runs at the end only: kept in a file of
// its own as soon as it changes, so that a run that does not come to its end loses none of it. The store is asked nothing
// and told nothing meanwhile. User-interface thread only; failures are ignored, for the writer at the end does all of it
// again.
namespace optionsJournal {

// Writes what runs left that did not come to their end into the store. An option that the store holds otherwise than that
// run knew was stored later, and stays. To be called before anything reads an option.
void TakeOver();

// From now on, what the options' writer would write is compared with what it would write at this moment.
void Begin();
// An option may have changed. Costs next to nothing; what has changed is kept when the present event is over, then at most
// every half second.
void Hint();
// Keeps what has changed now; true when there was something.
bool Look();

// The options' writer is done: ends what Begin began. The file goes, unless the store did not take everything.
void Close();
// The options are being reset: ends what Begin began, and the file goes.
void Forget();

// The store holds this text under an option's name.
void NoteStored(std::string_view name, std::string_view text);

}

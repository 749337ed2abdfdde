// Transportation and assignment on the problem form: the new tableau, its display, lines added and deleted.
#pragma once

namespace Tableau {

bool AskSize();  // asks for the two counts and makes the tableau; false: cancelled, nothing has changed
void Fill();     // puts the tableau on the problem form: empty cells when NewProblem is true

void AddOrigin();
void AddDestination();
void DeleteOrigin();  // asks which one
void DeleteDestination();

}  // namespace Tableau

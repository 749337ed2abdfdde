// Transportation and assignment on the problem form: the new tableau, its display, lines added and deleted.
#pragma once

namespace Tableau {

void NewTableau();   // asks for the two counts; DialogCancelled tells
void ShowTableau();  // fills the grid: empty cells when NewProblem is true

void AddOrigin();
void AddDestination();
void DeleteOrigin();  // asks which one
void DeleteDestination();

}  // namespace Tableau

// The interior of a finite-difference node chain in its modal form.
//
// The implicit (backward Euler) step of the interior nodes 1..n-2 of a chain
// is linear with constant coefficients:
//     (C + K) y' = C y + k0 e_1 T0' + kl e_m Ts',
// with C the nodes' capacities over the step, K the interior conductance
// matrix, and T0', Ts' the new outside and inside face temperatures. With
// S = C^1/2 the matrix S^-1 K S^-1 is symmetric; its eigenvectors Q
// (cyclic Jacobi rotations, Golub & Van Loan 2013, sect. 8.5) give the modes
// y = V z, V = S^-1 Q, in which the step is diagonal:
//     z'_i = lambda_i (z_i + p_i T0' + s_i Ts'),  lambda_i = 1 / (1 + theta_i).
// This is the same implicit step as the Thomas sweep, in exact arithmetic
// (rounding apart), but it has no recurrence from node to node: every mode
// updates on its own, so a step costs a few independent multiply-adds per
// node. It is computed once per construction and time step.
#pragma once

#include <vector>

#include "engine/construction.h"

namespace solvane::engine {

struct ChainModes {
    int nodes = 0;  // of the whole chain, faces included
    // Per mode (nodes - 2 of them).
    std::vector<double> lambda;  // decay over one step
    std::vector<double> lp, ls;  // lambda p and lambda s: the faces' drive of the mode
    std::vector<double> alpha;   // node 1 from the modes before the step: sum alpha_i z_i
    std::vector<double> beta;    // node n-2 likewise
    std::vector<double> gamma;   // stored heat over the step per unit of mode, W/m2K
    // Node 1 and node n-2 in terms of the new faces:
    //   T1' = sum alpha_i z_i + G1 T0' + B1 Ts',  Tn-2' = sum beta_i z_i + GL T0' + BL Ts'.
    // A two-node chain has no modes: its node 1 is the inside face and its
    // node n-2 the outside face (B1 = GL = 1).
    double G1 = 0, B1 = 0, GL = 0, BL = 0;
    // Node temperatures of the interior from the modes (row j: V_j) and back.
    std::vector<double> toNodes, toModes;  // m x m, row-major
};

// `capacityOverStep` per node (W/m2K) and `conductance` between neighbours
// (W/m2K), as in NodeChain; interior capacities must be above zero.
ChainModes MakeChainModes(const std::vector<double>& capacityOverStep,
                          const std::vector<double>& conductance);

}  // namespace solvane::engine

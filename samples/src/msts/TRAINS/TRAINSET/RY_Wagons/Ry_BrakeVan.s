SIMISA@@@@@@@@@@JINX0s1t______

shape ( placeholder of Ry_BrakeVan )

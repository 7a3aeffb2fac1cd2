SIMISA@@@@@@@@@@JINX0s1t______

shape ( placeholder of ry_mk2_bso )

SIMISA@@@@@@@@@@JINX0s1t______

shape ( placeholder of ry_coal16t_empty )

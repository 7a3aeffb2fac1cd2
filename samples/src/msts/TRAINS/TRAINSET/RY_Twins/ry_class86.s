SIMISA@@@@@@@@@@JINX0s1t______

shape ( placeholder of ry_class86 )
